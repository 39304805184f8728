#pragma once

#include <string>
#include <string_view>

#include "platform/Export.h"

namespace Backend
{
/// Where things are on the disk, and the small steps of installing and removing the product. Paths have the platform's
/// separators and none at the end; a path that cannot be determined is empty. No operation reports an error: what could
/// not be done is written to the debug stream. Any thread; the two setters before there is a backend.
class ORV_API OrvUtils
{
public:
    /// The library's module handle.
    static void* getDllInstance();

    /// The name of the virtual MIDI port.
    static const char* getOrvPortName() { return "Orvane"; }

    /// The key of an application's settings.
    static std::string getRegistryKey(std::string_view applicationName);

    /// The install folder, with the factory content in "Default" and the manual in "Manual"; empty before the
    /// installer has set it.
    static std::string getOrvProgDir();

    /// What an installer writes. False if it could not be kept.
    static bool setOrvProgDir(const std::string& folder);

    /// The data folder: presets, sequences, banks, record.
    static std::string getOrvAppDataDir();

    /// Another data folder for this process, "" for the user's own.
    static void setOrvAppDataDir(const std::string& folder);

    static std::string getCompanyAppDataDir();

    /// The folder of the retrospective record; empty if there is no data folder.
    static std::string getRecordDir();

    /// A path of something in a folder; empty if the folder is.
    static std::string pathIn(const std::string& folder, std::string_view name);

    /// Copies a folder of the factory content to a folder of the data folder, without overwriting anything.
    static void copyFiles(std::string_view sourceFolder, std::string_view targetFolder);

    static void install(bool withPort);

    /// Removes what the product put into the data folder. The user's own files stay, those of the factory that the user
    /// saved into among them, and the folders that hold them.
    static void uninstall();

    /// Whether an input device has the virtual port's name.
    static bool virtualMidiPortExists();

    /// Opens a page of the manual, "" for the first one. A name that leads out of the manual opens nothing. Returns an
    /// empty text, or a sentence for the user that says why the page cannot be opened and names its file.
    static std::string showManual(std::string_view page);

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
