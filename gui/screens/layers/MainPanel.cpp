#include "gui/screens/layers/MainPanel.h"

#include "gui/screens/layers/LayerPanel.h"

namespace Gui::Layers
{
MainPanel::MainPanel(OrvGuiIF& owner, Panel* around) : Panel(around), layerPanel(new LayerPanel(owner, this))
{
    layerPanel->show(true);
}
}  // namespace Gui::Layers
