// What is not saved, for the next start after a crash. See docs/behaviour/recovery.md.

#include <system_error>
#include <utility>

#include "api/OrvUtils.h"
#include "backend/core/Orv.h"
#include "backend/messages/GuiMessages.h"
#include "backend/messages/OrvMessages.h"
#include "backend/xml/XmlDocument.h"
#include "platform/DbgStream.h"
#include "platform/Folders.h"
#include "platform/Path.h"

namespace Backend
{
namespace fs = std::filesystem;

namespace
{
constexpr int MOST_RECOVERY_FILES = 16;
constexpr std::size_t MOST_STEPS = 100;

std::string absolutePath(const std::string& bank)
{
    std::error_code none;
    return bank.empty() ? bank : ::textOf(fs::absolute(pathOf(bank), none));
}
}  // namespace

/// Each process has the first file that no other one uses. Files of other processes, and those that are not restored,
/// are left for a later start.
void Orv::keepRecovery(const RecoveryPlan& plan)
{
    assertBackendThread();
    if (recovery) return;
    const fs::path directory =
        pathOf(Folders::getSettings()) / pathOf(OrvUtils::getCompanyAppDataDir()).filename() / pathOf(applicationName);
    std::error_code none;
    fs::create_directories(directory, none);
    recovery = restoreFrom(directory, plan);
    for (int number = 1; !recovery && number <= MOST_RECOVERY_FILES; ++number) {
        recovery = RecoveryFile::take(directory, number);
        if (recovery && recovery->exists()) recovery.reset();
    }
    if (!recovery) return reportRecovery(RecoveryResult::notKept, directory);
    recovery->start(
        [this] { messageManagerMaster.post(OrvMessage::WRITE_RECOVERY()); },
        [this, path = ::textOf(directory)] { notifyGui(GuiMessage::RECOVERY, RecoveryResult::notKept, path); });
}

/// The file that was restored; null if there is none.
std::unique_ptr<RecoveryFile> Orv::restoreFrom(const fs::path& directory, const RecoveryPlan& plan)
{
    for (int number = 1; plan.restores != RecoveryPlan::Restores::nothing && number <= MOST_RECOVERY_FILES; ++number) {
        std::error_code none;
        if (!fs::exists(directory / ("recovery-" + std::to_string(number)), none)) continue;
        auto file = RecoveryFile::take(directory, number);
        if (file && file->exists() && restoreFile(*file, plan)) return file;
    }
    return nullptr;
}

bool Orv::restoreFile(const RecoveryFile& file, const RecoveryPlan& plan)
{
    const auto text = file.read();
    const auto state = text ? RecoveryState::fromText(*text) : std::nullopt;
    if (!state) {
        reportRecovery(RecoveryResult::unreadable, file.moveAside(".unreadable"));
        return false;
    }
    const bool isOfOther =
        plan.restores == RecoveryPlan::Restores::ofCurrentBank && state->bank != absolutePath(bank.name);
    if (isOfOther) return false;
    if (!plan.newerThan.empty() && !file.isNewerThan(pathOf(plan.newerThan))) {
        file.moveAside(".old");
        return false;
    }
    RecoveryState before = getUnsaved();
    const bool isRestored = restore(*state);
    if (isRestored) beforeRecovery = std::move(before);
    if (!isRestored) reportRecovery(RecoveryResult::bankMissing, file.getPath());
    if (isRestored && state->hasEdits()) reportRecovery(RecoveryResult::restored, file.getPath());
    return isRestored;
}

void Orv::reportRecovery(RecoveryResult result, const fs::path& path)
{
    if (result != RecoveryResult::restored)
        WindowsLib::DbgStream() << ::textOf(path) << ": nothing was restored from there";
    recoveryResult = result;
    recoveryPath = ::textOf(path);
    notifyGui(GuiMessage::RECOVERY, recoveryResult, recoveryPath);
}

/// False if the bank cannot be loaded; then nothing has changed.
bool Orv::restore(const RecoveryState& state)
{
    const bool isOtherBank = state.bank != absolutePath(bank.name) && !state.bank.empty();
    if (isOtherBank && !openBank(state.bank)) return false;
    const auto nameOf = [&](const std::string& path) { return path == absolutePath(bank.name) ? bank.name : path; };
    drafts.forgetAll();
    for (const RecoveryState::Program& other : state.drafts)
        drafts.keep(nameOf(other.bank), other.number, Draft(*other.draft));
    registrySettings.set<Settings::SCREEN_STATE>(state.screens);
    notifyGui(GuiMessage::BANK, bank);
    replaceProgram(XmlDocument(state.program.text, XmlDocument::Source::text).getRoot(), state.number);
    history = state.program.history;
    updateSetList();
    updateEdited();
    return true;
}

/// What the host loaded at the start may be the program of a session and not that of the bank.
void Orv::discardRecovered()
{
    assertBackendThread();
    if (!beforeRecovery) return;
    const RecoveryState before = *std::exchange(beforeRecovery, std::nullopt);
    recoveryResult = RecoveryResult::nothing;
    drafts.forgetAll();
    history = {};
    if (before.bank == absolutePath(bank.name) && before.number == program.number)
        restore(before);
    else
        loadFromBank(program.number);
}

// --- writing

void Orv::setRecoveryChanged()
{
    if (!recovery || std::exchange(isRecoveryRequested, true)) return;
    recovery->setChanged();
}

/// The texts are made on the thread of the file.
void Orv::writeRecovery()
{
    isRecoveryRequested = false;
    if (recovery) recovery->write([state = getUnsaved()] { return state.toText(); });
}

RecoveryState Orv::getUnsaved()
{
    RecoveryState state{.bank = absolutePath(bank.name),
                        .number = program.number,
                        .screens = registrySettings.get<Settings::SCREEN_STATE>(),
                        .program = {writeProgram(), history.getLatest(MOST_STEPS)}};
    drafts.forEach([&](const std::string& path, int number, const std::shared_ptr<const Draft>& draft) {
        state.drafts.push_back({absolutePath(path), number, draft});
    });
    return state;
}
}  // namespace Backend
