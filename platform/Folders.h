#pragma once

#include <string>

#include "platform/Export.h"

/// The user's folders: $XDG_DATA_HOME or ~/.local/share, and $XDG_CONFIG_HOME or ~/.config; on Windows both are the
/// local application data folder. A host may set others before it creates a backend; a process has one set of folders.
/// Paths have no separator at the end; a folder that does not exist is an empty text.
namespace Folders
{
/// The local application data folder, created if need be.
ORV_API std::string getLocalApplicationData();

/// The folder of what belongs to the settings, and of the settings store, where that is in files.
ORV_API std::string getSettings();

/// Whether the settings store is in files: always, but on Windows only if the host has chosen their folder.
ORV_API bool areSettingsInFiles();

/// An empty text sets the system's folder again. The host's thread, while there is no backend.
ORV_API void setLocalApplicationData(const std::string& folder);
ORV_API void setSettings(const std::string& folder);
}  // namespace Folders
