#pragma once

#include <filesystem>

namespace Host
{
/// The file of the running program; empty if it is unknown.
std::filesystem::path programFile();
}  // namespace Host
