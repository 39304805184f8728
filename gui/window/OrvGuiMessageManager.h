#pragma once

#include "gui/framework/GuiMessageTable.h"

namespace Gui
{
class OrvGuiIF;

/// Handles the messages for the window as a whole: settings, ports, bank and program, screens, played events.
class OrvGuiMessageManager final : public TableMessageManager<OrvGuiIF>
{
public:
    explicit OrvGuiMessageManager(OrvGuiIF& gui);
};
}  // namespace Gui
