#include "host/session/SessionFolder.h"

#include <utility>

#include "api/Bank.h"
#include "api/OrvUtils.h"
#include "host/common/ApplicationName.h"
#include "host/common/InputError.h"
#include "host/common/WholeFile.h"
#include "platform/FolderCopy.h"
#include "platform/Folders.h"
#include "platform/Path.h"
#include "platform/SettingsStore.h"

namespace Host
{
namespace fs = std::filesystem;
using Backend::OrvUtils;

namespace
{
// The session has a settings key of its own.
constexpr const char* SESSION = "Orvane 3 Session";
constexpr const char* FOLDER = "Folder";  // the session's path when it was last used
constexpr const char* BANK = "Bank";
constexpr const char* NUMBER = "Number";

constexpr const char* DEFAULT_BANK = "DefaultBank";
constexpr const char* RECORD = "Retrospective Record";  // not copied into a new session

void createFolder(const fs::path& path)
{
    std::error_code error;
    fs::create_directories(path, error);
    if (error) throw InputError(textOf(path) + ": " + error.message());
}

/// Changes a path below `from` into the same path below `to`; others stay.
void moveBelow(SettingsStore& store, const char* name, const fs::path& from, const fs::path& to)
{
    const fs::path relative = pathOf(store.getString(name).value_or("")).lexically_relative(from);
    if (!relative.empty() && *relative.begin() != "..") store.setString(name, textOf(to / relative));
}

void copyData(const fs::path& from, const fs::path& to)
{
    std::error_code error;
    fs::directory_iterator entry(from, error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        std::error_code none;
        const fs::path target = to / entry->path().filename();
        if (entry->is_regular_file(none))
            fs::copy_file(entry->path(), target, none);
        else if (entry->is_directory(none) && target.filename() != RECORD)
            copyFolder(entry->path(), target);
    }
}

/// The folder of the program's settings below a settings folder.
fs::path settingsIn(const fs::path& folder)
{
    return folder / pathOf(OrvUtils::getCompanyAppDataDir()).filename() / APPLICATION_NAME;
}

std::optional<Setup> setupOf(const std::string& bank, int number)
try {
    checkSetupFile(pathOf(bank));
    const auto programs = static_cast<int>(Backend::Bank::fromFile(bank).programNames.size());
    return Setup{.loads = {bank}, .number = number >= 0 && number < programs ? number : 0};
} catch (const InputError&) {
    return std::nullopt;
}
}  // namespace

SessionFolder::SessionFolder(fs::path sessionFolder) : folder(std::move(sessionFolder))
{
    createFolder(folder / "data");
    std::error_code none;
    if (!fs::exists(folder / "settings", none)) copyUserFiles();
    OrvUtils::setOrvAppDataDir(textOf(folder / "data"));
    Folders::setSettings(textOf(folder / "settings"));
    followMove();
}

/// Copies the user's files. The settings come last, because their folder marks a complete copy.
void SessionFolder::copyUserFiles() const
{
    const fs::path data = pathOf(OrvUtils::getOrvAppDataDir());
    copyData(data, folder / "data");
    const fs::path beginning = folder / "settings.new";
    std::error_code error;
    fs::remove_all(beginning, error);
    createFolder(beginning);
    copyFolder(settingsIn(pathOf(Folders::getSettings())), settingsIn(beginning));
    Folders::setSettings(textOf(beginning));
    SettingsStore settings(OrvUtils::getRegistryKey(APPLICATION_NAME));
    moveBelow(settings, DEFAULT_BANK, data, folder / "data");
    if (!settings.save()) throw InputError(textOf(beginning) + ": the settings cannot be written");
    fs::rename(beginning, folder / "settings", error);
    if (error) throw InputError(textOf(folder) + ": " + error.message());
}

/// Changes paths into the folder where the session was before into paths of this folder.
void SessionFolder::followMove() const
{
    SettingsStore session(OrvUtils::getRegistryKey(SESSION));
    const fs::path before = pathOf(session.getString(FOLDER).value_or(""));
    if (before == folder) return;
    SettingsStore settings(OrvUtils::getRegistryKey(APPLICATION_NAME));
    if (!before.empty()) {
        moveBelow(settings, DEFAULT_BANK, before, folder);
        moveBelow(session, BANK, before, folder);
    }
    session.setString(FOLDER, textOf(folder));
    if (!settings.save() || !session.save()) throw InputError(textOf(folder) + ": the session cannot be written");
}

Setup SessionFolder::getSetup(const Report& report) const
{
    const SettingsStore session(OrvUtils::getRegistryKey(SESSION));
    const std::string bank = session.getString(BANK).value_or("");
    const int number = session.getNumber(NUMBER).value_or(0);
    Setup setup;
    setup.number = number;
    if (!bank.empty()) {
        const auto saved = setupOf(bank, number);
        if (saved)
            setup = *saved;
        else
            report("The session's bank cannot be loaded; the default bank is loaded instead: " + bank);
    }
    std::error_code none;
    if (fs::exists(getProgramPath(), none)) {
        const auto bytes = readWholeFile(getProgramPath());
        setup.program.assign(bytes.begin(), bytes.end());
    }
    return setup;
}

std::string SessionFolder::save(const Backend::HostState& state) const
{
    if (!state.areSettingsWritten) return "the settings cannot be written";
    if (const auto error = WholeFile::replace(getProgramPath(), state.program))
        return textOf(getProgramPath()) + ": " + error.message();
    SettingsStore session(OrvUtils::getRegistryKey(SESSION));
    session.setString(BANK, state.bank);
    session.setNumber(NUMBER, state.number);
    return session.save() ? "" : "the session's bank and program number cannot be written";
}
}  // namespace Host
