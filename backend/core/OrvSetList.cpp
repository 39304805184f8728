// The set list of the current bank, and the program changes of MIDI inputs. See docs/behaviour/programs-and-banks.md.

#include <utility>

#include "backend/core/Orv.h"
#include "backend/messages/GuiMessages.h"
#include "backend/messages/OrvMessages.h"
#include "platform/DbgStream.h"
#include "platform/Utf8.h"

namespace Backend
{
using DoneKind = BankEditDone::Kind;

// --- the file

/// Of the current bank. It is read again only when all that was changed here is written.
void Orv::openSetList()
{
    if (setListFile && setListFile->getPath() == SetListFile(bank.name).getPath() && setListWrites > 0)
        return updateSetList();
    setListFile = bank.name.empty() ? nullptr : std::make_shared<SetListFile>(bank.name);
    setListHistory = {};
    setList = setListFile ? setListFile->read() : SetList();
    setList.resolve(bank.programNames);
    if (!keepsSetPosition) setList.setCurrent(SetList::NONE);
    if (setList.getCurrent() == SetList::NONE) setList.follow(program.number);
    notifyGui(GuiMessage::SET_LIST, setList);
}

/// The programs of the bank have changed.
void Orv::updateSetList()
{
    setList.resolve(bank.programNames);
    setListHistory.forEach([this](SetListStep& step) { step.list.resolve(bank.programNames); });
    notifyGui(GuiMessage::SET_LIST, setList);
}

/// The programs of the bank have got other places and names.
void Orv::rearrangeSetList(const Arrangement& order)
{
    const auto numbers = numbersOf(order);
    const SetList before = setList;
    setListHistory.forEach([&](SetListStep& step) { step.list.rearrange(numbers, bank.programNames); });
    setList.rearrange(numbers, bank.programNames);
    notifyGui(GuiMessage::SET_LIST, setList);
    if (setList != before) writeSetList();
}

/// The current program was saved in its place, perhaps under another name.
void Orv::renameInSetList(int number, const std::string& name)
{
    const SetList before = setList;
    setListHistory.forEach([&](SetListStep& step) { step.list.rename(number, name); });
    setList.rename(number, name);
    if (setList != before) writeSetList();
}

std::vector<int> Orv::numbersOf(const Arrangement& order)
{
    std::vector<int> numbers;
    for (const ArrangedProgram& each : order) numbers.push_back(each.number);
    return numbers;
}

/// Commands do not wait for it.
void Orv::writeSetList()
{
    if (!setListFile || setList.isBroken()) return;
    ++setListWrites;
    files.runBeside([this, file = setListFile, list = setList] {
        messageManagerMaster.post(OrvMessage::SET_LIST_WRITTEN(file->write(list), file->getPath()));
    });
}

/// A failure is reported once, until the file can be written again.
void Orv::setListWritten(SetListWrite result, const std::string& path)
{
    --setListWrites;
    const bool isCurrent = setListFile && setListFile->getPath() == path;
    if (result == SetListWrite::changed && isCurrent && setListWrites == 0) {
        openSetList();
        notifyGui(GuiMessage::NOTICE, Notice::setListChanged, path);
    }
    if (result == SetListWrite::failed && !setListFailed)
        notifyGui(GuiMessage::NOTICE, Notice::setListNotWritten, path);
    if (result != SetListWrite::changed) setListFailed = result == SetListWrite::failed;
}

// --- edits

void Orv::editSetList(const SetListEdit& edit)
{
    assertBackendThread();
    const SetList before = setList;
    const bool isPossible = setListFile && !setList.isBroken() && isUtf8(edit.note);
    if (!isPossible || !setList.edit(edit, bank.programNames)) return acknowledgeSetList(DoneKind::failed, edit.name);
    setListHistory.add({edit.name, before});
    setListChanged(DoneKind::edited, edit.name);
}

void Orv::undoSetList()
{
    assertBackendThread();
    repeatSetListStep(SetListHistory::Way::undo);
}

void Orv::redoSetList()
{
    assertBackendThread();
    repeatSetListStep(SetListHistory::Way::redo);
}

void Orv::repeatSetListStep(SetListHistory::Way way)
{
    const DoneKind kind = way == SetListHistory::Way::undo ? DoneKind::undone : DoneKind::redone;
    SetListStep* const step = setListHistory.find(way);
    if (step == nullptr) return acknowledgeSetList(kind, "");
    setList.swapEntries(step->list);
    setListHistory.count(way);
    if (setList.isOn()) setList.follow(program.number);  // perhaps its entry came back
    setListChanged(kind, step->name);
}

void Orv::setListChanged(DoneKind kind, const std::string& name)
{
    writeSetList();
    notifyGui(GuiMessage::SET_LIST, setList);
    acknowledgeSetList(kind, name);
}

void Orv::acknowledgeSetList(DoneKind kind, const std::string& name) const
{
    acknowledgeBank({kind, setListFile ? setListFile->getPath() : std::string(), name});
}

void Orv::enableSetList(bool on)
{
    assertBackendThread();
    if (on == setList.isOn() || setList.isBroken()) return;
    setList.setOn(on);
    if (on) setList.follow(program.number);
    writeSetList();
    notifyGui(GuiMessage::SET_LIST, setList);
}

// --- playing

void Orv::goToSetEntry(int id)
{
    assertBackendThread();
    const SetEntry* const entry = setList.find(id);
    if (entry == nullptr || entry->isMissing) return;
    const int before = setList.getCurrent();
    setList.setCurrent(id);
    if (!loadFromBank(entry->number)) return setList.setCurrent(before);
    setPositionChanged();
}

/// The next or previous entry; nothing at the ends.
void Orv::stepInSetList(SelectType::Kind kind)
{
    const SetEntry* const entry =
        kind == SelectType::Kind::up ? setList.findNext() : setList.findPrevious(program.number);
    if (entry != nullptr) goToSetEntry(entry->id);
}

/// A program was loaded in another way.
void Orv::followInSetList()
{
    const int before = setList.getCurrent();
    if (setList.isOn()) setList.follow(program.number);
    if (setList.getCurrent() != before) setPositionChanged();
}

void Orv::setPositionChanged()
{
    notifyGui(GuiMessage::SET_LIST, setList);
    if (keepsSetPosition) writeSetList();
}

void Orv::keepSetPosition(bool on)
{
    assertBackendThread();
    keepsSetPosition = on;
}

// --- program changes of inputs

void Orv::setProgramChangeInput(int input)
{
    assertBackendThread();
    changeSetting<Settings::PROGRAM_CHANGE_INPUT>(*this, input);
    updateProgramChangeInput();
}

void Orv::setProgramChangeChannel(int channel)
{
    assertBackendThread();
    changeSetting<Settings::PROGRAM_CHANGE_CHANNEL>(*this, channel);
    updateProgramChangeInput();
}

void Orv::updateProgramChangeInput()
{
    const ProgramChangeInput input{registrySettings.get<Settings::PROGRAM_CHANGE_INPUT>(),
                                   registrySettings.get<Settings::PROGRAM_CHANGE_CHANNEL>()};
    programChanges.setInput(input);
    midiEngine.setProgramChangeInput(input);
}

/// True for an event that is not translated, because it changes the program or selects a bank for that.
bool Orv::takeProgramChange(const MidiEngine::OrvMidiMessage& event)
{
    if (!programChanges.getInput().takes(event)) return false;
    const auto number = programChanges.take(event);
    if (number && static_cast<std::size_t>(*number) >= bank.programNames.size()) {
        WindowsLib::DbgStream() << "program change on input " << int{event.getInput()} << ": no program " << *number;
        notifyGui(GuiMessage::NOTICE, Notice::noSuchProgram, std::to_string(*number + 1));
    } else if (number) {
        changeProgram({.kind = SelectType::Kind::specific, .value = *number});
    }
    return true;
}
}  // namespace Backend
