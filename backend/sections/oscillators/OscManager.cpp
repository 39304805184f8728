#include "backend/sections/oscillators/OscManager.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "backend/messages/GuiMessages.h"
#include "backend/messages/MidiEngineMessageManager.h"
#include "backend/model/PresetSections.h"
#include "backend/values/NoteIntervals.h"
#include "backend/values/Scaling.h"

namespace Backend::Oscillators
{
namespace
{
constexpr std::int32_t KNOB_END = 127;

/// The next speed in the table of note intervals, in that direction; the last entry is not reached.
std::optional<std::int32_t> stepNoteInterval(std::int32_t speed, std::int32_t step)
{
    constexpr std::int32_t FIRST = 1;
    constexpr std::int32_t LAST = 21;
    const std::int32_t index = nearestNoteIntervalIndex(speed) + (step > 0) - (step < 0);
    if (index < FIRST || index > LAST) return std::nullopt;
    return noteIntervalFromIndex(index);
}

std::int32_t turnKnob(std::int32_t speed, std::int32_t steps)
{
    const std::int64_t knob = std::clamp<std::int64_t>(
        std::int64_t{logarithmicKnob(speed, Oscillator::FASTEST, Oscillator::SLOWEST)} + steps, 0, KNOB_END);
    return scaleLogarithmic(static_cast<std::int32_t>(knob), Oscillator::FASTEST, Oscillator::SLOWEST);
}

constexpr auto COMMANDS = std::to_array<Command<OscManager>>({
                              on<OscMessage::MERGE_OSCILLATORS, &OscManager::mergeOscillators>(),
                              on<OscMessage::SET_OSCILLATORS, &OscManager::setOscillators>(),
                              on<OscMessage::SET_SELECTED, &OscManager::setSelected>(),
                              on<OscMessage::CHANGE_PLAYING, &OscManager::changePlaying>(),
                              on<OscMessage::CHANGE_SPEED, &OscManager::changeSpeed>(),
                              on<OscMessage::SET_SPEED_FROM_MIDI, &OscManager::setSpeedFromMidi>(),
                              on<OscMessage::SET_SPEED_MODE, &OscManager::setSpeedMode>(),
                          }) +
                          presetCommands<OscManager, OscMessage::Presets>();
}  // namespace

OscManager::OscManager(OrvIF& backend, MessageManagerMaster& master)
    : ListSection(backend, PresetSections::OSCILLATORS),
      messageManager(master, [this](Message& message) { execute<OscManager>(COMMANDS, *this, message); })
{
}

/// While held notes are kept, an oscillator with equal settings at the same place goes on playing.
void OscManager::readContent(const XmlElement& section, OscList& into)
{
    const std::vector<Oscillator> before = into.getOscillators();
    into.readXml(section);
    if (!keepsNotes()) return;
    for (const Oscillator& old : before)
        if (Oscillator* const now = into.findElement(old.id); now != nullptr && now->asPlayed() == old.asPlayed())
            now->playing = old.playing;
}

// --- edits

void OscManager::replaceItem(Oscillator& oscillator, Oscillator read)
{
    read.selected = oscillator.selected;
    read.playing = oscillator.playing;
    oscillator.speed = read.speed;
    if (read.asPlayed() == oscillator.asPlayed())
        orv.getMidiEngineMessageManager().postSetOscSpeed(oscillator.id, oscillator.speed);
    else
        isListEdited = true;
    oscillator = read;
}

void OscManager::addRecord(OscId id, const XmlElement& element)
{
    ListSection::addRecord(id, element);
    isListEdited = true;
}

void OscManager::removeRecord(OscId id)
{
    ListSection::removeRecord(id);
    isListEdited = true;
}

void OscManager::publishRecords()
{
    if (std::exchange(isListEdited, false)) updatePlaying();
    notifyGui();
}

// --- requests of the window

void OscManager::mergeOscillators(const std::vector<Oscillator>& changed, bool redraw)
{
    for (const Oscillator& oscillator : changed) edit().put(oscillator);
    publish(redraw);
}

void OscManager::setOscillators(const OscList& newOscillators, bool redraw)
{
    edit() = newOscillators;
    publish(redraw);
}

void OscManager::setSelected(const std::vector<OscId>& ids) { edit().selectOnly(ids); }

void OscManager::setSpeedMode(OscId id, TimeIntervalType mode)
{
    Oscillator* oscillator = edit().findElement(id);
    if (oscillator == nullptr) return;
    oscillator->speedMode = mode;
    postToGui(GuiMessage::OSC_SPEED_MODE, id, mode.kind);
}

// --- operations

void OscManager::dataSelect(const SelectType& select)
{
    edit().select(select, [&](const Oscillator& oscillator) {
        postToGui(GuiMessage::OSC_SELECTED, oscillator.id, oscillator.selected);
    });
}

/// If the oscillator of an id is selected, all selected ones are changed.
template <class Change>
void OscManager::changeNamed(const SelectType& select, Change&& change)
{
    SelectType widened = select;
    if (select.kind == SelectType::Kind::specific)
        if (const Oscillator* named = getContent().findElement(select.value); named != nullptr && named->selected)
            widened.kind = SelectType::Kind::selected;
    edit().forEachNamed(widened, change);
}

void OscManager::changePlaying(const SelectType& select, const OnOffToggle& value)
{
    changeNamed(select, [&](Oscillator& oscillator) {
        const bool on = value.appliedTo(oscillator.playing);
        if (on == oscillator.playing) return;
        oscillator.playing = on;
        orv.getMidiEngineMessageManager().postSetOscPlaying(oscillator.id, on);
        postToGui(GuiMessage::OSC_PLAYING, oscillator.id, on);
    });
}

void OscManager::changeSpeed(const SelectType& select, const RelativeFixedValue& value)
{
    changeNamed(select, [&](Oscillator& oscillator) {
        if (!value.relative)
            setSpeed(oscillator, value.value);
        else if (oscillator.speedMode.kind == TimeIntervalType::Kind::ppq)
            setSpeed(oscillator, turnKnob(oscillator.speed, value.value));
        else if (const auto speed = stepNoteInterval(oscillator.speed, value.value))
            setSpeed(oscillator, *speed);
    });
}

void OscManager::setSpeedFromMidi(const SelectType& select, std::int32_t value)
{
    constexpr std::int32_t INTERVALS = 22;
    const std::int32_t knob = std::clamp(value, 0, KNOB_END);
    changeNamed(select, [&](Oscillator& oscillator) {
        if (oscillator.speedMode.kind == TimeIntervalType::Kind::ppq)
            setSpeed(oscillator, scaleLogarithmic(knob, Oscillator::FASTEST, Oscillator::SLOWEST));
        else
            setSpeed(oscillator, noteIntervalFromIndex(scaleRange(0, KNOB_END, knob, INTERVALS, 1)));
    });
}

void OscManager::setSpeed(Oscillator& oscillator, std::int32_t speed)
{
    oscillator.speed = std::clamp(speed, Oscillator::FASTEST, Oscillator::SLOWEST);
    orv.getMidiEngineMessageManager().postSetOscSpeed(oscillator.id, oscillator.speed);
    postToGui(GuiMessage::OSC_SPEED, oscillator.id, oscillator.speed);
}

// --- publishing

void OscManager::updatePlaying()
{
    orv.getMidiEngineMessageManager().postSetOscList(getOscillators().getOscillators());
}

void OscManager::notifyGui() const { postToGui(GuiMessage::OSCILLATORS, getContent()); }
}  // namespace Backend::Oscillators
