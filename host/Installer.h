#pragma once

#include <filesystem>

namespace Host
{
/// The factory content and the manual that belong to a program: those installed with it (../share/orvane), or else
/// those of the source it was built from. Empty if there are none.
std::filesystem::path findContent(const std::filesystem::path& program);

/// Plays installer: where the library does not know the install folder, or that folder is gone, it gets the content of
/// the running program. Before a backend is initialized. What cannot be done is told to the debug stream.
void installIfNeeded();
}  // namespace Host
