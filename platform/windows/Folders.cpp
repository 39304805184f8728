#include "platform/Folders.h"

#include <windows.h>
// After windows.h
#include <shlobj.h>

#include <filesystem>

#include "platform/Path.h"
#include "platform/windows/Wide.h"

namespace Folders
{
namespace
{
std::string chosenData;
std::string chosenSettings;

std::string systemFolder(int folder)
{
    wchar_t path[MAX_PATH];
    const HRESULT result = SHGetFolderPathW(nullptr, folder | CSIDL_FLAG_CREATE, nullptr, SHGFP_TYPE_CURRENT, path);
    return result == S_OK ? narrow(path) : "";
}

std::string withoutSeparatorAtEnd(std::string folder)
{
    while (folder.size() > 3 && (folder.ends_with('\\') || folder.ends_with('/'))) folder.pop_back();  // "C:\" stays
    return folder;
}
}  // namespace

std::string getLocalApplicationData()
{
    const std::string folder =
        withoutSeparatorAtEnd(chosenData.empty() ? systemFolder(CSIDL_LOCAL_APPDATA) : chosenData);
    std::error_code failed;
    std::filesystem::create_directories(pathOf(folder), failed);
    return failed ? "" : folder;
}

std::string getSettings()
{
    return withoutSeparatorAtEnd(chosenSettings.empty() ? systemFolder(CSIDL_LOCAL_APPDATA) : chosenSettings);
}

bool areSettingsInFiles() { return !chosenSettings.empty(); }

void setLocalApplicationData(const std::string& folder) { chosenData = folder; }

void setSettings(const std::string& folder) { chosenSettings = folder; }
}  // namespace Folders
