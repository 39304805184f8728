#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace Backend
{
/// The files in a preset folder of the data folder, sorted by name, so that of "a.pst" and "a.txt" always the same one
/// is used. A folder that does not exist is first made as a copy of the factory content. Incomplete files of a run that
/// was killed are left out. A folder that cannot be read is reported in the debug stream.
std::vector<std::filesystem::path> listPresetFiles(const std::string& folderName);
}  // namespace Backend
