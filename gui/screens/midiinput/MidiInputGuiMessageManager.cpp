#include "gui/screens/midiinput/MidiInputGuiMessageManager.h"

#include <array>

#include "backend/messages/GuiMessages.h"
#include "gui/screens/midiinput/MidiInputPanel.h"

namespace Gui::MidiInput
{
using namespace Backend;

namespace
{
constexpr auto MIDI_INPUT_COMMANDS = std::to_array<Command<MidiInputPanel>>({
    on<GuiMessage::MIDI_EVENT_CONFIGURATIONS, &MidiInputPanel::handleEventConfigurations>(),
    on<GuiMessage::MIDI_INPUT, &MidiInputPanel::handleMidiInput>(),
});
}  // namespace

MidiInputGuiMessageManager::MidiInputGuiMessageManager(MidiInputPanel& panel)
    : TableMessageManager(MIDI_INPUT_COMMANDS, panel)
{
}
}  // namespace Gui::MidiInput
