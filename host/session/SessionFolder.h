#pragma once

#include <filesystem>
#include <string>

#include "api/HostState.h"
#include "host/common/Report.h"
#include "host/common/SetupFile.h"

namespace Host
{
/// The folder in which a session keeps all that is Orvane's: "data" and "settings" take the place of the user's own
/// folders, and beside them stands the program as it was played when the session was saved. A new session begins as a
/// copy of the user's own banks, presets, sequences and settings, which then stay as they are. The folder can be moved
/// and copied while nobody plays in it.
class SessionFolder
{
public:
    /// Makes the folder if need be, and makes it the one of this process from now on. Before there is a backend. Throws
    /// InputError if there can be no such folder.
    explicit SessionFolder(std::filesystem::path sessionFolder);

    /// The bank, the number and the program that were saved; a bank that is not there any more is told.
    Setup getSetup(const Report& report) const;

    /// Where the backend stands, whose settings are written already. Empty, or the reason why it is not saved.
    std::string save(const Backend::HostState& state) const;

private:
    void begin() const;
    void followMove() const;
    std::filesystem::path programPath() const { return folder / "program.xml"; }

    const std::filesystem::path folder;
};
}  // namespace Host
