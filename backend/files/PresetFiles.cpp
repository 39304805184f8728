#include "backend/files/PresetFiles.h"

#include <algorithm>

#include "api/OrvUtils.h"
#include "platform/DbgStream.h"
#include "platform/Path.h"
#include "platform/WholeFile.h"

namespace Backend
{
namespace
{
namespace fs = std::filesystem;
using WindowsLib::DbgStream;

bool isFolder(const std::string& path)
{
    std::error_code none;
    return fs::is_directory(pathOf(path), none);
}
}  // namespace

std::vector<fs::path> listPresetFiles(const std::string& folderName)
{
    std::vector<fs::path> files;
    const std::string folder = OrvUtils::pathIn(OrvUtils::getOrvAppDataDir(), folderName);
    if (folder.empty()) return files;
    if (!isFolder(folder)) OrvUtils::copyFiles(folderName, folderName);
    if (!isFolder(folder)) return files;
    std::error_code error;
    fs::directory_iterator entry(pathOf(folder), error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        std::error_code none;
        if (entry->is_regular_file(none) && !WholeFile::isTemporary(entry->path())) files.push_back(entry->path());
    }
    if (error) DbgStream() << folder << ": presets cannot be listed: " << error.message();
    std::ranges::sort(files);
    return files;
}
}  // namespace Backend
