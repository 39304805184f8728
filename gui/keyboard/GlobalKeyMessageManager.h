#pragma once

#include "gui/framework/GuiMessageTable.h"

namespace Gui
{
class OrvGuiIF;

/// Handles the messages of the global keyboard: keys that it intercepted, and that it was switched on or off.
class GlobalKeyMessageManager final : public TableMessageManager<OrvGuiIF>
{
public:
    explicit GlobalKeyMessageManager(OrvGuiIF& gui);
};
}  // namespace Gui
