#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace Backend
{
/// The files in a folder of presets of the data folder, by name, so that of "a.pst" and "a.txt" it is always the same
/// one that counts. Where there is no such folder it first becomes a copy of the factory's. What a killed run left half
/// written is no preset. A folder that cannot be read is reported to the debug stream.
std::vector<std::filesystem::path> listPresetFiles(const std::string& folderName);
}  // namespace Backend
