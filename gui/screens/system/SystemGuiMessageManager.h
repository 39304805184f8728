#pragma once

#include "gui/framework/GuiMessageTable.h"

namespace Gui::System
{
class SystemPanel;

/// What the record tells the system screen.
class SystemGuiMessageManager final : public TableMessageManager<SystemPanel>
{
public:
    explicit SystemGuiMessageManager(SystemPanel& panel);
};
}  // namespace Gui::System
