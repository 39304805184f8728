#include "platform/Folders.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

namespace Folders
{
namespace
{
std::string chosenData;
std::string chosenSettings;

std::string homeFolder()
{
    if (const char* home = std::getenv("HOME"); home != nullptr && *home == '/') return home;
    const passwd* user = ::getpwuid(::getuid());
    return user != nullptr && user->pw_dir != nullptr ? user->pw_dir : "";
}

/// The XDG Base Directory Specification: a relative path in the variable is ignored.
std::string systemFolder(const char* variable, const char* belowHome)
{
    if (const char* folder = std::getenv(variable); folder != nullptr && *folder == '/') return folder;
    const std::string home = homeFolder();
    return home.empty() ? "" : home + belowHome;
}

std::string withoutSeparatorAtEnd(std::string folder)
{
    while (folder.size() > 1 && folder.ends_with('/')) folder.pop_back();
    return folder;
}
}  // namespace

std::string getLocalApplicationData()
{
    const std::string folder =
        withoutSeparatorAtEnd(chosenData.empty() ? systemFolder("XDG_DATA_HOME", "/.local/share") : chosenData);
    std::error_code failed;
    std::filesystem::create_directories(folder, failed);
    return failed ? "" : folder;
}

std::string getSettings()
{
    return withoutSeparatorAtEnd(chosenSettings.empty() ? systemFolder("XDG_CONFIG_HOME", "/.config") : chosenSettings);
}

bool areSettingsInFiles() { return true; }

void setLocalApplicationData(const std::string& folder) { chosenData = folder; }

void setSettings(const std::string& folder) { chosenSettings = folder; }
}  // namespace Folders
