#include "backend/sections/layers/LayerMessageManager.h"

#include <array>

#include "backend/messages/Command.h"
#include "backend/messages/MessageManagerMaster.h"
#include "backend/sections/layers/LayerManager.h"

namespace Backend::Layers
{
namespace
{
enum Number : unsigned int {
    FIRST = 34718,
    MERGE_LAYERS = 34719,
    SET_LAYERS = 34720,
    LOAD_PRESET = 34721,
    RENAME_PRESET = 34722,
    DELETE_PRESET = 34723,
    SAVE_PRESET = 34724,
    SET_SELECTED = 34725,
    LAST = 34726
};

constexpr auto COMMANDS = std::to_array<Command<LayerManager>>({
    command<&LayerManager::mergeLayers>(MERGE_LAYERS, "MergeLayers"),
    command<&LayerManager::setLayers>(SET_LAYERS, "SetLayers"),
    command<&LayerManager::loadPreset>(LOAD_PRESET, "LoadPreset"),
    command<&LayerManager::renamePreset>(RENAME_PRESET, "RenamePreset"),
    command<&LayerManager::deletePreset>(DELETE_PRESET, "DeletePreset"),
    command<&LayerManager::savePreset>(SAVE_PRESET, "SavePreset"),
    command<&LayerManager::setSelected>(SET_SELECTED, "SetSelected"),
});
}  // namespace

LayerMessageManager::LayerMessageManager(MessageManagerMaster& managerMaster, LayerManager& layerManager)
    : MessageManager(managerMaster), manager(layerManager)
{
}

bool LayerMessageManager::wantMessage(unsigned int message) const { return message >= FIRST && message <= LAST; }

void LayerMessageManager::handleMessage(Message& message) { carryOut<LayerManager>(COMMANDS, manager, message); }

void LayerMessageManager::postMergeLayers(const std::vector<Layer>& changed, bool redraw)
{
    master.post(pack(MERGE_LAYERS, changed, redraw));
}

void LayerMessageManager::postSetLayers(const LayerList& layers, bool redraw)
{
    master.post(pack(SET_LAYERS, layers, redraw));
}

void LayerMessageManager::postLoadPreset(const std::string& name) { master.post(pack(LOAD_PRESET, name)); }

void LayerMessageManager::postRenamePreset(const std::string& name, const std::string& newName)
{
    master.post(pack(RENAME_PRESET, name, newName));
}

void LayerMessageManager::postDeletePreset(const std::string& name) { master.post(pack(DELETE_PRESET, name)); }

void LayerMessageManager::postSavePreset(const std::string& name, const std::vector<LayerId>& ids)
{
    master.post(pack(SAVE_PRESET, name, ids));
}

void LayerMessageManager::postSetSelected(const std::vector<LayerId>& ids) { master.post(pack(SET_SELECTED, ids)); }
}  // namespace Backend::Layers
