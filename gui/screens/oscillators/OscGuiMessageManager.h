#pragma once

#include "gui/framework/GuiMessageTable.h"

namespace Gui::Oscillators
{
class OscPanel;

/// Handles the backend's messages on the oscillators.
class OscGuiMessageManager final : public TableMessageManager<OscPanel>
{
public:
    explicit OscGuiMessageManager(OscPanel& panel);
};
}  // namespace Gui::Oscillators
