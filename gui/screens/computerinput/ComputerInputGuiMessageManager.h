#pragma once

#include "gui/framework/GuiMessageTable.h"

namespace Gui::ComputerInput
{
class ComputerInputPanel;

/// Handles the backend's messages on the keys of the computer.
class ComputerInputGuiMessageManager final : public TableMessageManager<ComputerInputPanel>
{
public:
    explicit ComputerInputGuiMessageManager(ComputerInputPanel& panel);
};
}  // namespace Gui::ComputerInput
