#pragma once

#include "gui/framework/GuiMessageTable.h"

namespace Gui
{
class OrvGuiIF;

/// What the backend tells the window as a whole: settings, ports, bank and program, screens, played events.
class OrvGuiMessageManager final : public TableMessageManager<OrvGuiIF>
{
public:
    explicit OrvGuiMessageManager(OrvGuiIF& gui);
};
}  // namespace Gui
