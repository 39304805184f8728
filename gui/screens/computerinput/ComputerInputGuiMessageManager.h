#pragma once

#include "gui/framework/GuiMessageTable.h"

namespace Gui::ComputerInput
{
class ComputerInputPanel;

/// What the backend tells of the keys of the computer.
class ComputerInputGuiMessageManager final : public TableMessageManager<ComputerInputPanel>
{
public:
    explicit ComputerInputGuiMessageManager(ComputerInputPanel& panel);
};
}  // namespace Gui::ComputerInput
