#include "backend/sections/midiinput/MidiInputMessageManager.h"

#include <array>

#include "backend/messages/Command.h"
#include "backend/messages/MessageManagerMaster.h"
#include "backend/sections/midiinput/MidiInputManager.h"

namespace Backend::MidiInput
{
namespace
{
enum Number : unsigned int {
    FIRST = 33718,
    SET_EVENT_CONFIGURATIONS = 33719,
    LOAD_PRESET = 33720,
    RENAME_PRESET = 33721,
    DELETE_PRESET = 33722,
    SAVE_PRESET = 33723,
    LAST = 33724
};

constexpr auto COMMANDS = std::to_array<Command<MidiInputManager>>({
    command<&MidiInputManager::mergeEventConfigurations>(SET_EVENT_CONFIGURATIONS, "SetEventConfigurations"),
    command<&MidiInputManager::loadPreset>(LOAD_PRESET, "LoadPreset"),
    command<&MidiInputManager::renamePreset>(RENAME_PRESET, "RenamePreset"),
    command<&MidiInputManager::deletePreset>(DELETE_PRESET, "DeletePreset"),
    command<&MidiInputManager::savePreset>(SAVE_PRESET, "SavePreset"),
});
}  // namespace

MidiInputMessageManager::MidiInputMessageManager(MessageManagerMaster& managerMaster,
                                                 MidiInputManager& midiInputManager)
    : MessageManager(managerMaster), manager(midiInputManager)
{
}

bool MidiInputMessageManager::wantMessage(unsigned int message) const { return message >= FIRST && message <= LAST; }

void MidiInputMessageManager::handleMessage(Message& message)
{
    carryOut<MidiInputManager>(COMMANDS, manager, message);
}

void MidiInputMessageManager::postSetEventConfigurations(const std::vector<MidiEventConfiguration>& configurations,
                                                         bool notifyGui)
{
    master.post(pack(SET_EVENT_CONFIGURATIONS, configurations, notifyGui));
}

void MidiInputMessageManager::postLoadPreset(const std::string& name) { master.post(pack(LOAD_PRESET, name)); }

void MidiInputMessageManager::postRenamePreset(const std::string& name, const std::string& newName)
{
    master.post(pack(RENAME_PRESET, name, newName));
}

void MidiInputMessageManager::postDeletePreset(const std::string& name) { master.post(pack(DELETE_PRESET, name)); }

void MidiInputMessageManager::postSavePreset(const std::string& name, const std::vector<MidiEvent>& eventsToSave)
{
    master.post(pack(SAVE_PRESET, name, eventsToSave));
}
}  // namespace Backend::MidiInput
