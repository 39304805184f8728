#pragma once

#include <string>

#include "platform/Export.h"

/// Where a user's things are: $XDG_DATA_HOME or ~/.local/share, and $XDG_CONFIG_HOME or ~/.config. A host that wants
/// them elsewhere says so before it creates a backend; one process has one set of folders. No separator at the end;
/// empty where there is no such folder.
namespace Folders
{
/// The local application data folder, created if need be.
ORV_API std::string getLocalApplicationData();

/// The folder of the settings store, where the system has no registry.
ORV_API std::string getSettings();

/// Empty text gives back the system's folder. On the host's thread, while there is no backend.
ORV_API void setLocalApplicationData(const std::string& folder);
ORV_API void setSettings(const std::string& folder);
}  // namespace Folders
