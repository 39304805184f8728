#pragma once

#include "gui/framework/GuiMessageTable.h"

namespace Gui::Display
{
class DisplayPanel;

/// Passes the display's text to the panel.
class DisplayGuiMessageManager final : public TableMessageManager<DisplayPanel>
{
public:
    explicit DisplayGuiMessageManager(DisplayPanel& panel);
};
}  // namespace Gui::Display
