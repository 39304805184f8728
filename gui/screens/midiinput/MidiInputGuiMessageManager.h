#pragma once

#include "gui/framework/GuiMessageTable.h"

namespace Gui::MidiInput
{
class MidiInputPanel;

/// Handles the backend's messages on the entries of MIDI events.
class MidiInputGuiMessageManager final : public TableMessageManager<MidiInputPanel>
{
public:
    explicit MidiInputGuiMessageManager(MidiInputPanel& panel);
};
}  // namespace Gui::MidiInput
