#include "backend/sections/controls/ControlMessageManager.h"

#include <array>

#include "backend/messages/Command.h"
#include "backend/messages/MessageManagerMaster.h"
#include "backend/sections/controls/ControlManager.h"
#include "backend/values/PackedCell.h"

namespace Backend::Controls
{
namespace
{
enum Number : unsigned int {
    FIRST = 33968,
    SET_CONTROLS = 33969,
    LOAD_PRESET = 33970,
    RENAME_PRESET = 33971,
    DELETE_PRESET = 33972,
    SAVE_PRESET = 33973,
    UPDATE_CONTROL = ControlUpdates::MESSAGE,
    SET_VALUE = 33975,
    SET_SELECTED = 33976,
    LAST = 33978
};

void updateControls(ControlManager& manager, Message& message)
{
    manager.updateControls(ControlUpdates::read(message));
}

constexpr auto COMMANDS = std::to_array<Command<ControlManager>>({
    command<&ControlManager::mergeControls>(SET_CONTROLS, "SetControls"),
    command<&ControlManager::loadPreset>(LOAD_PRESET, "LoadPreset"),
    command<&ControlManager::renamePreset>(RENAME_PRESET, "RenamePreset"),
    command<&ControlManager::deletePreset>(DELETE_PRESET, "DeletePreset"),
    command<&ControlManager::savePreset>(SAVE_PRESET, "SavePreset"),
    {UPDATE_CONTROL, "UpdateControl", updateControls},
    command<&ControlManager::setValueAt>(SET_VALUE, "SetValue"),
    command<&ControlManager::setSelectedAt>(SET_SELECTED, "SetSelected"),
});
}  // namespace

ControlMessageManager::ControlMessageManager(MessageManagerMaster& managerMaster, ControlManager& controlManager)
    : MessageManager(managerMaster), manager(controlManager), updates(managerMaster.getQueue())
{
}

bool ControlMessageManager::wantMessage(unsigned int message) const { return message >= FIRST && message <= LAST; }

void ControlMessageManager::handleMessage(Message& message) { carryOut<ControlManager>(COMMANDS, manager, message); }

void ControlMessageManager::postSetControls(const std::vector<Control>& changed, bool notifyGui, bool deleteMissing)
{
    master.post(pack(SET_CONTROLS, changed, notifyGui, deleteMissing));
}

void ControlMessageManager::postLoadPreset(const std::string& name) { master.post(pack(LOAD_PRESET, name)); }

void ControlMessageManager::postRenamePreset(const std::string& name, const std::string& newName)
{
    master.post(pack(RENAME_PRESET, name, newName));
}

void ControlMessageManager::postDeletePreset(const std::string& name) { master.post(pack(DELETE_PRESET, name)); }

void ControlMessageManager::postSavePreset(const std::string& name, const std::vector<Cell>& cells)
{
    master.post(pack(SAVE_PRESET, name, cells));
}

void ControlMessageManager::postSetValue(const Cell& cell, std::int32_t value)
{
    master.post(pack(SET_VALUE, packCell(cell), value));
}

void ControlMessageManager::postSetSelected(const Cell& cell, bool selected)
{
    master.post(pack(SET_SELECTED, packCell(cell), selected));
}
}  // namespace Backend::Controls
