// Edits of the window, with their history, and the drafts of edited programs. See docs/behaviour/editing.md.

#include <algorithm>
#include <utility>

#include "backend/core/Orv.h"
#include "backend/messages/GuiMessages.h"
#include "backend/xml/XmlDocument.h"

namespace Backend
{
using RecordEditing::Snapshot;
using RecordEditing::takeSnapshot;

namespace
{
std::vector<EditDone::Record> addedAndRemoved(const RecordChanges& changes)
{
    std::vector<EditDone::Record> records;
    for (const RecordChange& change : changes)
        if (change.kind != RecordEdit::Kind::change) records.push_back({change.section, change.kind, change.id});
    return records;
}
}  // namespace

Records* Orv::findRecords(std::string_view section)
{
    if (section == ProgramValues::SECTION) return &programValues;
    const auto found = std::ranges::find(sections, section, &ProgramSection::getTag);
    return found == sections.end() ? nullptr : *found;
}

void Orv::edit(const Edit& edit)
{
    assertBackendThread();
    EditStep step{.name = edit.name, .gesture = edit.gesture};
    Preset preset = Preset::none;
    if (edit.program == program.number) step.changes = execute(edit, preset);
    EditDone done{.gesture = edit.gesture, .name = step.changes.empty() ? "" : edit.name};
    done.records = addedAndRemoved(step.changes);
    if (!step.changes.empty()) history.add(std::move(step));
    if (preset == Preset::loaded) history.setPreset(edit.section, edit.preset);
    acknowledge(done);
}

/// Input sections determine which zones exist, so every edit may change those too; no edit adds or removes one
/// directly.
RecordChanges Orv::execute(const Edit& edit, Preset& preset)
{
    Records* const records = findRecords(edit.section);
    if (records == nullptr) return {};
    const Snapshot zones = takeSnapshot(zoneManager);
    RecordChanges changes = edit.preset.empty() ? executeRecords(*records, edit) : executePreset(edit, preset);
    if (records == &zoneManager) changes.clear();
    std::ranges::move(RecordEditing::differences(zoneManager.getTag(), zones, takeSnapshot(zoneManager)),
                      std::back_inserter(changes));
    return changes;
}

RecordChanges Orv::executeRecords(Records& records, const Edit& edit) const
{
    RecordChanges changes;
    for (const RecordEdit& record : edit.records)
        if (&records != &zoneManager || record.kind == RecordEdit::Kind::change)
            std::ranges::move(RecordEditing::edit(records, edit.section, record), std::back_inserter(changes));
    if (!changes.empty()) records.publishRecords();
    return changes;
}

RecordChanges Orv::executePreset(const Edit& edit, Preset& preset)
{
    const auto found = std::ranges::find(sections, std::string_view(edit.section), &ProgramSection::getTag);
    if (found == sections.end()) return {};
    const Snapshot before = takeSnapshot(**found);
    if (edit.isPresetFile)
        (*found)->loadPresetFile(edit.preset);
    else if ((*found)->loadPreset(edit.preset))
        preset = Preset::loaded;
    return RecordEditing::differences(edit.section, before, takeSnapshot(**found));
}

void Orv::undo(std::uint32_t gesture)
{
    assertBackendThread();
    const EditStep* const step = history.undo();
    RecordChanges changes;
    if (step != nullptr)
        for (auto change = step->changes.rbegin(); change != step->changes.rend(); ++change)
            changes.push_back(change->reversed());
    apply(changes);
    acknowledge({EditDone::Kind::undone, gesture, step != nullptr ? step->name : "", addedAndRemoved(changes)});
}

void Orv::redo(std::uint32_t gesture)
{
    assertBackendThread();
    const EditStep* const step = history.redo();
    const RecordChanges changes = step != nullptr ? step->changes : RecordChanges{};
    apply(changes);
    acknowledge({EditDone::Kind::redone, gesture, step != nullptr ? step->name : "", addedAndRemoved(changes)});
}

/// Zones last, because publishing an input section determines them anew.
void Orv::apply(const RecordChanges& changes)
{
    std::vector<Records*> changed;
    const auto applyIf = [&](bool areZones) {
        for (const RecordChange& change : changes) {
            Records* const records = findRecords(change.section);
            if ((records == &zoneManager) != areZones) continue;
            RecordEditing::apply(*records, change);
            if (std::ranges::find(changed, records) == changed.end()) changed.push_back(records);
        }
        for (Records* const records : std::exchange(changed, {})) records->publishRecords();
    };
    applyIf(false);
    applyIf(true);
}

void Orv::publishProgramValues()
{
    midiEngine.getMessageManager().postSetTempo(program.tempo);
    midiEngine.getMessageManager().postSetTempoSource(program.tempoSource);
    notifyProgram(IsThere::yes);
}

void Orv::acknowledge(const EditDone& done)
{
    notifyGui(GuiMessage::EDIT_DONE, done);
    updateEdited();
}

// --- drafts

void Orv::keepDrafts(bool on)
{
    assertBackendThread();
    keepsDrafts = on;
}

void Orv::discardEdits()
{
    assertBackendThread();
    history = {};
    drafts.forget(bank.name, program.number);
    updateEdited();
}

/// The window gets the number of edited programs when it changes, see `PROGRAM_EDITED`.
void Orv::updateEdited()
{
    setRecoveryChanged();
    updateSectionPresets();
    const Edited now = getEdited();
    if (now == shownEdited) return;
    shownEdited = now;
    notifyGui(GuiMessage::PROGRAM_EDITED, now.isCurrent, now.others);
}

Orv::Edited Orv::getEdited() const { return {history.isEdited(), static_cast<int>(drafts.count())}; }

/// Before another program takes the place of the current one.
void Orv::leaveProgram()
{
    EditHistory left = std::exchange(history, {});
    if (!keepsDrafts) return;
    const bool isLost = registrySettings.get<Settings::ASK_BEFORE_LOSS>() == static_cast<int>(BeforeLoss::never);
    if (left.isEdited() && isLost) left = {};
    drafts.keep(bank.name, program.number, {left.isEdited() ? writeProgram() : "", std::move(left)});
}

/// Loads the draft of a program, or the element that its bank has.
void Orv::enterProgram(const XmlElement& stored, int number)
{
    Draft draft = drafts.take(bank.name, number);
    const bool isEdited = !draft.text.empty();
    replaceProgram(isEdited ? XmlDocument(draft.text, XmlDocument::Source::text).getRoot() : stored, number);
    history = std::move(draft.history);
    updateEdited();
}
}  // namespace Backend
