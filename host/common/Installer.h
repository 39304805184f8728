#pragma once

#include <filesystem>

namespace Host
{
/// The factory content, the manual and the demonstration that belong to a program: in ../share/orvane, where they are
/// installed, and where the build puts links to them. Empty if there are none.
std::filesystem::path findContent(const std::filesystem::path& program);

/// Those of the running program.
std::filesystem::path findContent();

/// Plays installer: where the library does not know the install folder, or that folder is gone, it gets the content of
/// the running program. Before a backend is initialized. What cannot be done is told to the debug stream.
void installIfNeeded();
}  // namespace Host
