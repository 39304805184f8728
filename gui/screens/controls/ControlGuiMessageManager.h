#pragma once

#include "gui/framework/GuiMessageTable.h"

namespace Gui::Controls
{
class ControlPanel;

/// Handles the backend's messages on the controls.
class ControlGuiMessageManager final : public TableMessageManager<ControlPanel>
{
public:
    explicit ControlGuiMessageManager(ControlPanel& panel);
};
}  // namespace Gui::Controls
