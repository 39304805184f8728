#include "gui/screens/layers/LayerGuiMessageManager.h"

#include <array>

#include "backend/messages/GuiMessages.h"
#include "gui/screens/layers/LayerPanel.h"

namespace Gui::Layers
{
using namespace Backend;

namespace
{
constexpr auto LAYER_COMMANDS = std::to_array<Command<LayerPanel>>({
    on<GuiMessage::LAYERS, &LayerPanel::handleLayers>(),
    on<GuiMessage::LAYER_SELECTED, &LayerPanel::handleLayerSelected>(),
    on<GuiMessage::LAYER_TRANSPOSE, &LayerPanel::handleLayerTranspose>(),
    on<GuiMessage::LAYER_VELOCITY, &LayerPanel::handleLayerVelocity>(),
    on<GuiMessage::LAYER_MUTE, &LayerPanel::handleLayerMute>(),
    on<GuiMessage::LAYER_MONO, &LayerPanel::handleLayerMono>(),
    on<GuiMessage::LAYER_SOLO, &LayerPanel::handleLayerSolo>(),
    on<GuiMessage::LAYER_NOTE_TOGGLE, &LayerPanel::handleLayerNoteToggle>(),
    on<GuiMessage::LAYER_EDIT, &LayerPanel::handleLayerEdit>(),
});
}  // namespace

LayerGuiMessageManager::LayerGuiMessageManager(LayerPanel& panel) : TableMessageManager(LAYER_COMMANDS, panel) {}
}  // namespace Gui::Layers
