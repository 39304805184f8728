#pragma once

#include <filesystem>

#include "platform/Export.h"

/// Copies what is in `from` into `to`, with all folders below; `to` is made with its parents if need be. A file that is
/// there already stays. A link to a file becomes a file; links to folders, devices and the like are left out. A folder
/// that did not exist appears with all of its content or not at all; a file too. What fails is told to the debug stream
/// and the rest goes on. False if `from` is no folder that can be read.
ORV_API bool copyFolder(const std::filesystem::path& from, const std::filesystem::path& to);
