#include "backend/sections/oscillators/OscMessageManager.h"

#include <array>

#include "backend/messages/Command.h"
#include "backend/messages/MessageManagerMaster.h"
#include "backend/sections/oscillators/OscManager.h"

namespace Backend::Oscillators
{
namespace
{
enum Number : unsigned int {
    FIRST = 35468,
    MERGE_OSCILLATORS = 35469,
    SET_OSCILLATORS = 35470,
    LOAD_PRESET = 35471,
    RENAME_PRESET = 35472,
    DELETE_PRESET = 35473,
    SAVE_PRESET = 35474,
    SET_SELECTED = 35475,
    CHANGE_PLAYING = 35476,
    CHANGE_SPEED = 35477,
    SET_SPEED_FROM_MIDI = 35478,
    SET_SPEED_MODE = 35479,
    LAST = 35480
};

constexpr auto COMMANDS = std::to_array<Command<OscManager>>({
    command<&OscManager::mergeOscillators>(MERGE_OSCILLATORS, "MergeOscillators"),
    command<&OscManager::setOscillators>(SET_OSCILLATORS, "SetOscillators"),
    command<&OscManager::loadPreset>(LOAD_PRESET, "LoadPreset"),
    command<&OscManager::renamePreset>(RENAME_PRESET, "RenamePreset"),
    command<&OscManager::deletePreset>(DELETE_PRESET, "DeletePreset"),
    command<&OscManager::savePreset>(SAVE_PRESET, "SavePreset"),
    command<&OscManager::setSelected>(SET_SELECTED, "SetSelected"),
    command<&OscManager::changePlaying>(CHANGE_PLAYING, "ChangePlaying"),
    command<&OscManager::changeSpeed>(CHANGE_SPEED, "ChangeSpeed"),
    command<&OscManager::setSpeedFromMidi>(SET_SPEED_FROM_MIDI, "SetSpeedFromMidi"),
    command<&OscManager::setSpeedMode>(SET_SPEED_MODE, "SetSpeedMode"),
});
}  // namespace

OscMessageManager::OscMessageManager(MessageManagerMaster& managerMaster, OscManager& oscManager)
    : MessageManager(managerMaster), manager(oscManager)
{
}

bool OscMessageManager::wantMessage(unsigned int message) const { return message >= FIRST && message <= LAST; }

void OscMessageManager::handleMessage(Message& message) { carryOut<OscManager>(COMMANDS, manager, message); }

void OscMessageManager::postMergeOscillators(const std::vector<Oscillator>& changed, bool redraw)
{
    master.post(pack(MERGE_OSCILLATORS, changed, redraw));
}

void OscMessageManager::postSetOscillators(const OscList& oscillators, bool redraw)
{
    master.post(pack(SET_OSCILLATORS, oscillators, redraw));
}

void OscMessageManager::postLoadPreset(const std::string& name) { master.post(pack(LOAD_PRESET, name)); }

void OscMessageManager::postRenamePreset(const std::string& name, const std::string& newName)
{
    master.post(pack(RENAME_PRESET, name, newName));
}

void OscMessageManager::postDeletePreset(const std::string& name) { master.post(pack(DELETE_PRESET, name)); }

void OscMessageManager::postSavePreset(const std::string& name, const std::vector<OscId>& ids)
{
    master.post(pack(SAVE_PRESET, name, ids));
}

void OscMessageManager::postSetSelected(const std::vector<OscId>& ids) { master.post(pack(SET_SELECTED, ids)); }

void OscMessageManager::postChangePlaying(const SelectType& select, const OnOffToggle& value)
{
    master.post(pack(CHANGE_PLAYING, select, value));
}

void OscMessageManager::postChangeSpeed(OscId id, const RelativeFixedValue& value)
{
    master.post(pack(CHANGE_SPEED, SelectType{SelectType::Kind::specific, id}, value));
}

void OscMessageManager::postSetSpeedFromMidi(const SelectType& select, std::int32_t value)
{
    master.post(pack(SET_SPEED_FROM_MIDI, select, value));
}

void OscMessageManager::postSetSpeedMode(OscId id, TimeIntervalType mode)
{
    master.post(pack(SET_SPEED_MODE, id, mode.kind));
}
}  // namespace Backend::Oscillators
