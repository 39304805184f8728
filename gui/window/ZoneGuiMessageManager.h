#pragma once

#include "gui/framework/GuiMessageTable.h"

namespace Gui
{
class MainWindow;

/// Handles the messages of the zones.
class ZoneGuiMessageManager final : public TableMessageManager<MainWindow>
{
public:
    explicit ZoneGuiMessageManager(MainWindow& window);
};
}  // namespace Gui
