#include "backend/sections/computerinput/ComputerInputMessageManager.h"

#include <array>

#include "backend/messages/Command.h"
#include "backend/messages/MessageManagerMaster.h"
#include "backend/sections/computerinput/ComputerInputManager.h"

namespace Backend::ComputerInput
{
namespace
{
enum Number : unsigned int {
    FIRST = 33468,
    SET_KEY_CONFIGURATIONS = 33469,
    SET_USE_KEY_UP_MOD = 33470,
    LOAD_PRESET = 33471,
    RENAME_PRESET = 33472,
    DELETE_PRESET = 33473,
    SAVE_PRESET = 33474,
    KEY_DOWN = 33475,
    KEY_UP = 33476,
    LAST = 33477
};

void keyDown(ComputerInputManager& manager, Message& message)
{
    manager.keyEvent(Key::fromPacked(message.wparam), true, message.lparam != 0);
}

void keyUp(ComputerInputManager& manager, Message& message)
{
    manager.keyEvent(Key::fromPacked(message.wparam), false, false);
}

constexpr auto COMMANDS = std::to_array<Command<ComputerInputManager>>({
    command<&ComputerInputManager::mergeKeyConfigurations>(SET_KEY_CONFIGURATIONS, "SetKeyConfigurations"),
    command<&ComputerInputManager::setUseKeyUpMod>(SET_USE_KEY_UP_MOD, "SetUseKeyUpMod"),
    command<&ComputerInputManager::loadPreset>(LOAD_PRESET, "LoadPreset"),
    command<&ComputerInputManager::renamePreset>(RENAME_PRESET, "RenamePreset"),
    command<&ComputerInputManager::deletePreset>(DELETE_PRESET, "DeletePreset"),
    command<&ComputerInputManager::savePreset>(SAVE_PRESET, "SavePreset"),
    {KEY_DOWN, "KeyDown", keyDown},
    {KEY_UP, "KeyUp", keyUp},
});
}  // namespace

ComputerInputMessageManager::ComputerInputMessageManager(MessageManagerMaster& managerMaster,
                                                         ComputerInputManager& computerInputManager)
    : MessageManager(managerMaster), manager(computerInputManager)
{
}

bool ComputerInputMessageManager::wantMessage(unsigned int message) const
{
    return message >= FIRST && message <= LAST;
}

void ComputerInputMessageManager::handleMessage(Message& message)
{
    carryOut<ComputerInputManager>(COMMANDS, manager, message);
}

void ComputerInputMessageManager::postSetKeyConfigurations(const std::vector<KeyConfiguration>& configurations,
                                                           bool notifyGui)
{
    master.post(pack(SET_KEY_CONFIGURATIONS, configurations, notifyGui));
}

void ComputerInputMessageManager::postSetUseKeyUpMod(bool on) { master.post(pack(SET_USE_KEY_UP_MOD, on)); }

void ComputerInputMessageManager::postLoadPreset(const std::string& name) { master.post(pack(LOAD_PRESET, name)); }

void ComputerInputMessageManager::postRenamePreset(const std::string& name, const std::string& newName)
{
    master.post(pack(RENAME_PRESET, name, newName));
}

void ComputerInputMessageManager::postDeletePreset(const std::string& name) { master.post(pack(DELETE_PRESET, name)); }

void ComputerInputMessageManager::postSavePreset(const std::string& name, const std::vector<Key>& keysToSave)
{
    master.post(pack(SAVE_PRESET, name, keysToSave));
}

void ComputerInputMessageManager::postKeyDown(const Key& key, bool isRepeat)
{
    master.post(pack(KEY_DOWN, key.getPacked(), isRepeat));
}

void ComputerInputMessageManager::postKeyUp(const Key& key) { master.post(pack(KEY_UP, key.getPacked())); }
}  // namespace Backend::ComputerInput
