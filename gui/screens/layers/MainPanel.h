#pragma once

#include <vector>

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

    // Changes that the backend reports
    /// The step of its sequence that each layer plays, -1 for none.
    void handleSequenceSteps(const std::vector<int>& steps);
    /// The window's list of sequence presets is another one.
    void handleSequencePresets();

private:
    class Settings;

    LayerPanel* layerPanel;
    Settings* settings;
};
}  // namespace Gui::Layers
