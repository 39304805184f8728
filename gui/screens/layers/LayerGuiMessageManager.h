#pragma once

#include "gui/framework/GuiMessageTable.h"

namespace Gui::Layers
{
class LayerPanel;

/// Handles the backend's messages on the layers.
class LayerGuiMessageManager final : public TableMessageManager<LayerPanel>
{
public:
    explicit LayerGuiMessageManager(LayerPanel& panel);
};
}  // namespace Gui::Layers
