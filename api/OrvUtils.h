#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/Export.h"

namespace Backend
{
/// The folders of the product, and the steps of installing and removing it. Paths have the separators of the platform
/// and none at the end; a path that cannot be determined is empty. Failures are written to the debug stream only. Any
/// thread; the two setters only before a backend is made.
class ORV_API OrvUtils
{
public:
    /// The library's module handle.
    static void* getDllInstance();

    /// The name of the virtual MIDI port.
    static const char* getOrvPortName() { return "Orvane"; }

    /// The key of an application's settings in the settings store.
    static std::string getRegistryKey(std::string_view applicationName);

    /// The install folder, with the factory content in "Default" and the manual in "Manual"; empty if no installer has
    /// set it.
    static std::string getOrvProgDir();

    /// Sets the install folder. False if it could not be stored.
    static bool setOrvProgDir(const std::string& folder);

    /// The data folder, with presets, sequences, banks and the record.
    static std::string getOrvAppDataDir();

    /// Sets the data folder of this process; "" for the user's own.
    static void setOrvAppDataDir(const std::string& folder);

    static std::string getCompanyAppDataDir();

    /// The folder of the retrospective record; empty if there is no data folder.
    static std::string getRecordDir();

    /// The path of a file in a folder; empty if `folder` is.
    static std::string pathIn(const std::string& folder, std::string_view name);

    /// Copies a folder of the factory content to a folder of the data folder, without overwriting anything.
    static void copyFiles(std::string_view sourceFolder, std::string_view targetFolder);

    static void install(bool withPort);

    /// Removes the factory content from the data folder. Files of the user stay, including files of the factory content
    /// that the user has changed, and so do their folders.
    static void uninstall();

    /// Whether an input device has the name of the virtual port.
    static bool virtualMidiPortExists();

    /// Opens a page of the manual, "" for the first one. A name that leads out of the manual opens nothing. What it
    /// returns gives a sentence for the user that says why the page cannot be opened and names its file; an empty text
    /// while no reason is known, which may be some seconds long. That may be called on any one thread, and never waits.
    static std::function<std::string()> showManual(std::string_view page);

private:
    static void removeFiles(const std::string& folder, std::string_view name);
    static void installMidiPort();
    static void uninstallMidiPort();
};
}  // namespace Backend

/// What an installer calls: install with and without the virtual MIDI port, and remove.
extern "C" {
ORV_API void commitPort();
ORV_API void commitNoPort();
ORV_API void uninstall();
}
