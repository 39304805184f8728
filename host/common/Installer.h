#pragma once

#include <filesystem>

namespace Host
{
/// The folder with the factory content, the manual and the demonstration of a program: ../share/orvane, which an
/// installation and the build both have. Empty if it does not exist.
std::filesystem::path findContent(const std::filesystem::path& program);

/// The folder of the running program.
std::filesystem::path findContent();

/// Does what an installer does: if the library knows no install folder, or the folder does not exist, it gets the
/// content of the running program. To be called before a backend is initialized. Failures go to the debug stream.
void installIfNeeded();
}  // namespace Host
