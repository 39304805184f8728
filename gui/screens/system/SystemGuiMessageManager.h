#pragma once

#include "gui/framework/GuiMessageTable.h"

namespace Gui::System
{
class SystemPanel;

/// Handles the messages of the retrospective record.
class SystemGuiMessageManager final : public TableMessageManager<SystemPanel>
{
public:
    explicit SystemGuiMessageManager(SystemPanel& panel);
};
}  // namespace Gui::System
