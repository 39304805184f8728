#pragma once

#include "gui/framework/GuiMessageTable.h"

namespace Gui
{
class ScreenColumn;

/// Handles the messages of the zones.
class ZoneGuiMessageManager final : public TableMessageManager<ScreenColumn>
{
public:
    explicit ZoneGuiMessageManager(ScreenColumn& screens);
};
}  // namespace Gui
