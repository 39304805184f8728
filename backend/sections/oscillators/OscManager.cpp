#include "backend/sections/oscillators/OscManager.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <sstream>

#include "api/OrvIF.h"
#include "backend/messages/GuiMessages.h"
#include "backend/messages/MidiEngineMessageManager.h"
#include "backend/model/PresetSections.h"
#include "backend/values/NoteIntervals.h"
#include "backend/values/Scaling.h"
#include "backend/xml/XmlDocument.h"

namespace Backend::Oscillators
{
namespace
{
constexpr std::int32_t KNOB_END = 127;

/// One entry further in the table of note intervals; the last entry is out of reach.
std::optional<std::int32_t> stepNoteInterval(std::int32_t speed, std::int32_t step)
{
    constexpr std::int32_t FIRST = 1;
    constexpr std::int32_t LAST = 21;
    const std::int32_t index = nearestNoteIntervalIndex(speed) + (step > 0) - (step < 0);
    if (index < FIRST || index > LAST) return std::nullopt;
    return noteIntervalFromIndex(index);
}

/// The position of a knob that stands for a speed. What a file holds may lie beyond its ends.
std::int32_t knobOf(std::int32_t speed)
{
    const double fastest = std::log(Oscillator::FASTEST);
    const double range = std::log(Oscillator::SLOWEST) - fastest;
    return static_cast<std::int32_t>(
        std::floor(KNOB_END - (std::log(std::max(speed, 1)) - fastest) / range * KNOB_END + 0.5));
}

std::int32_t turnKnob(std::int32_t speed, std::int32_t steps)
{
    const std::int64_t knob = std::clamp<std::int64_t>(std::int64_t{knobOf(speed)} + steps, 0, KNOB_END);
    return scaleLogarithmic(static_cast<std::int32_t>(knob), Oscillator::FASTEST, Oscillator::SLOWEST);
}

constexpr auto COMMANDS = std::to_array<Command<OscManager>>({
    on<OscMessage::MERGE_OSCILLATORS, &OscManager::mergeOscillators>(),
    on<OscMessage::SET_OSCILLATORS, &OscManager::setOscillators>(),
    on<OscMessage::LOAD_PRESET, &OscManager::loadPreset>(),
    on<OscMessage::RENAME_PRESET, &OscManager::renamePreset>(),
    on<OscMessage::DELETE_PRESET, &OscManager::deletePreset>(),
    on<OscMessage::SAVE_PRESET, &OscManager::savePreset>(),
    on<OscMessage::SET_SELECTED, &OscManager::setSelected>(),
    on<OscMessage::CHANGE_PLAYING, &OscManager::changePlaying>(),
    on<OscMessage::CHANGE_SPEED, &OscManager::changeSpeed>(),
    on<OscMessage::SET_SPEED_FROM_MIDI, &OscManager::setSpeedFromMidi>(),
    on<OscMessage::SET_SPEED_MODE, &OscManager::setSpeedMode>(),
});
}  // namespace

OscManager::OscManager(OrvIF& backend, MessageManagerMaster& master)
    : orv(backend),
      presets(PresetSections::OSCILLATORS),
      messageManager(master, [this](Message& message) { execute<OscManager>(COMMANDS, *this, message); })
{
}

// --- files

void OscManager::readXml(const XmlElement& section)
{
    oscillators.readXml(section);
    publish();
}

void OscManager::writeXml(std::ostream& out, int indent, std::span<const OscId> ids) const
{
    oscillators.writeXml(out, indent, ids);
}

void OscManager::loadPreset(const std::string& name)
{
    const std::string path = presets.findPreset(name);
    if (path.empty()) return;
    readXml(XmlDocument(path, XmlDocument::Source::file).getRoot());
}

void OscManager::savePreset(const std::string& name, const std::vector<OscId>& ids)
{
    presets.save(name, [&](std::string& text) {
        std::ostringstream out;
        writeXml(out, 0, ids);
        text += out.str();
    });
}

void OscManager::renamePreset(const std::string& name, const std::string& newName) { presets.rename(name, newName); }

void OscManager::deletePreset(const std::string& name) { presets.remove(name); }

void OscManager::setDefaults()
{
    oscillators.clear();
    publish();
}

// --- the window's wishes

void OscManager::mergeOscillators(const std::vector<Oscillator>& changed, bool redraw)
{
    for (const Oscillator& oscillator : changed) oscillators.put(oscillator);
    publishToEngine();
    if (redraw) tellGui();
}

void OscManager::setOscillators(const OscList& newOscillators, bool redraw)
{
    oscillators = newOscillators;
    publishToEngine();
    if (redraw) tellGui();
}

void OscManager::setSelected(const std::vector<OscId>& ids) { oscillators.selectOnly(ids); }

void OscManager::setSpeedMode(OscId id, TimeIntervalType mode)
{
    Oscillator* oscillator = oscillators.findElement(id);
    if (oscillator == nullptr) return;
    oscillator->speedMode = mode;
    tellGui(GuiMessage::OSC_SPEED_MODE, id, static_cast<std::int32_t>(mode.kind));
}

// --- operations

void OscManager::dataSelect(const SelectType& select)
{
    oscillators.select(select, [&](const Oscillator& oscillator) {
        tellGui(GuiMessage::OSC_SELECTED, oscillator.id, oscillator.selected);
    });
}

/// Where the one that is named is selected, all that are follow it.
template <class Change>
void OscManager::changeNamed(const SelectType& select, Change&& change)
{
    SelectType widened = select;
    if (select.kind == SelectType::Kind::specific)
        if (const Oscillator* named = oscillators.findElement(select.value); named != nullptr && named->selected)
            widened.kind = SelectType::Kind::selected;
    oscillators.forEachNamed(widened, change);
}

void OscManager::changePlaying(const SelectType& select, const OnOffToggle& value)
{
    changeNamed(select, [&](Oscillator& oscillator) {
        const bool on = value.appliedTo(oscillator.playing);
        if (on == oscillator.playing) return;
        oscillator.playing = on;
        orv.getMidiEngineMessageManager().postSetOscPlaying(oscillator.id, on);
        tellGui(GuiMessage::OSC_PLAYING, oscillator.id, on);
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
    tellGui(GuiMessage::OSC_SPEED, oscillator.id, oscillator.speed);
}

// --- publishing

void OscManager::publish()
{
    publishToEngine();
    tellGui();
}

void OscManager::publishToEngine() { orv.getMidiEngineMessageManager().postSetOscList(oscillators.getOscillators()); }

void OscManager::tellGui() const
{
    const WindowHandle window = orv.getGuiWindowHandle();
    if (window) window.post({.number = GuiMessage::OSCILLATORS, .payload = Payload::of(OscList(oscillators))});
}

void OscManager::tellGui(unsigned int message, OscId id, std::int32_t value) const
{
    orv.getGuiWindowHandle().post({.number = message, .wparam = static_cast<std::uint32_t>(id), .lparam = value});
}
}  // namespace Backend::Oscillators
