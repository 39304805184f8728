#pragma once

#include "gui/framework/Panel.h"

namespace Gui
{
class OrvGuiIF;
}

namespace Gui::Layers
{
class LayerPanel;

/// The layer screen: the layers, and what is opened beneath them.
class MainPanel final : public Panel
{
public:
    MainPanel(OrvGuiIF& owner, Panel* around);

    LayerPanel& getLayerPanel() { return *layerPanel; }

private:
    class Settings;

    LayerPanel* layerPanel;
};
}  // namespace Gui::Layers
