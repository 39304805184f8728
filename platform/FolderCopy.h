#pragma once

#include <filesystem>

#include "platform/Export.h"

/// Copies the content of `from` into `to`, with all folders below; `to` and its parents are created if need be.
/// Existing files stay. A link to a file becomes a file; links to folders, devices and the like are left out. A new
/// folder appears with all of its content or not at all; so does a file. Failures go to the debug stream, and the rest
/// is copied. False if `from` is not a folder that can be read.
ORV_API bool copyFolder(const std::filesystem::path& from, const std::filesystem::path& to);
