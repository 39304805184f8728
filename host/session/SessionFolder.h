#pragma once

#include <filesystem>
#include <string>

#include "api/HostState.h"
#include "host/common/Report.h"
#include "host/common/SetupFile.h"

namespace Host
{
/// The folder in which a session keeps all of Orvane's files: "data" and "settings" replace the user's own folders, and
/// "program.xml" holds the program as it was played when the session was saved. A new session begins as a copy of the
/// user's banks, presets, sequences and settings, which are not changed afterwards. The folder can be moved and copied
/// while no program uses it.
class SessionFolder
{
public:
    /// Creates the folder if need be, and makes it the folder of this process from now on. To be called before there is
    /// a backend. Throws InputError if the folder cannot be used.
    explicit SessionFolder(std::filesystem::path sessionFolder);

    /// The bank, number and program that were saved; a bank that cannot be loaded is reported.
    Setup getSetup(const Report& report) const;

    /// Saves the state of the backend, which has written its settings. Returns an empty text, or why it was not saved.
    std::string save(const Backend::HostState& state) const;

    std::filesystem::path getProgramPath() const { return folder / "program.xml"; }

private:
    void copyUserFiles() const;
    void followMove() const;

    const std::filesystem::path folder;
};
}  // namespace Host
