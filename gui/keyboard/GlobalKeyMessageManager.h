#pragma once

#include "gui/framework/GuiMessageTable.h"

namespace Gui
{
class OrvGuiIF;

/// What the global keyboard tells: the keys that it took, and that it was switched.
class GlobalKeyMessageManager final : public TableMessageManager<OrvGuiIF>
{
public:
    explicit GlobalKeyMessageManager(OrvGuiIF& gui);
};
}  // namespace Gui
