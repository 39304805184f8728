#include "backend/display/DisplayMessageManager.h"

#include <array>
#include <utility>

#include "backend/display/Display.h"
#include "backend/display/DisplayListener.h"
#include "backend/messages/Command.h"

namespace Backend::Display
{
namespace
{
enum Number : unsigned int {
    STOP = 32869,
    ADD_TEXT = 32870,
    RESEND_TEXT = 32871,
    UPDATE_LISTENER = 32872,
    MIDI_INPUT_EVENT = 32873,
    MIDI_OUTPUT_EVENT = 32874,
    SET_LISTENER = 32875,
    SET_DISPLAY_NUMBERS = 32876,
    SET_DISPLAY_MIDI_INPUT_EVENTS = 32877,
    SET_DISPLAY_MIDI_OUTPUT_EVENTS = 32878,
    SET_MIDI_INPUT_PORTS = 32879,
    SET_MIDI_OUTPUT_PORTS = 32880,
    DROP_LISTENER = 32881
};

constexpr auto COMMANDS = std::to_array<Command<Display>>({
    command<&Display::addText>(ADD_TEXT, "AddText"),
    command<&Display::resendText>(RESEND_TEXT, "ResendText"),
    command<&Display::updateListener>(UPDATE_LISTENER, "UpdateListener"),
    eventCommand<&Display::addMidiInputEvent>(MIDI_INPUT_EVENT, "MidiInputEvent"),
    eventCommand<&Display::addMidiOutputEvent>(MIDI_OUTPUT_EVENT, "MidiOutputEvent"),
    command<&Display::setListener>(SET_LISTENER, "SetListener"),
    command<&Display::setDisplayNumbers>(SET_DISPLAY_NUMBERS, "SetDisplayNumbers"),
    command<&Display::setDisplayMidiInputEvents>(SET_DISPLAY_MIDI_INPUT_EVENTS, "SetDisplayMidiInputEvents"),
    command<&Display::setDisplayMidiOutputEvents>(SET_DISPLAY_MIDI_OUTPUT_EVENTS, "SetDisplayMidiOutputEvents"),
    command<&Display::setMidiInputPorts>(SET_MIDI_INPUT_PORTS, "SetMidiInputPorts"),
    command<&Display::setMidiOutputPorts>(SET_MIDI_OUTPUT_PORTS, "SetMidiOutputPorts"),
    command<&Display::dropListener>(DROP_LISTENER, "DropListener"),
});
}  // namespace

DisplayMessageManager::DisplayMessageManager(Display& shown)
    : display(shown), worker("orv-display", STOP, [this](Message& message) { handleMessage(message); })
{
}

void DisplayMessageManager::handleMessage(Message& message) { carryOut<Display>(COMMANDS, display, message); }

void DisplayMessageManager::postAddText(const std::string& text) { worker.post(pack(ADD_TEXT, text)); }

void DisplayMessageManager::postResendText() { worker.post(pack(RESEND_TEXT)); }

void DisplayMessageManager::postUpdateListener() { worker.post(pack(UPDATE_LISTENER)); }

// The two words hold all that a line shows.
void DisplayMessageManager::postEvent(unsigned int number, const MidiEngine::OrvMidiMessage& event)
{
    worker.post({.number = number, .wparam = event.getWparam(), .lparam = event.getLparam()});
}

void DisplayMessageManager::postMidiInputEvent(const MidiEngine::OrvMidiMessage& event)
{
    postEvent(MIDI_INPUT_EVENT, event);
}

void DisplayMessageManager::postMidiOutputEvent(const MidiEngine::OrvMidiMessage& event)
{
    postEvent(MIDI_OUTPUT_EVENT, event);
}

void DisplayMessageManager::setListener(DisplayListener* listener) { worker.post(pack(SET_LISTENER, listener)); }

void DisplayMessageManager::dropListener(std::unique_ptr<DisplayListener> listener)
{
    worker.post(pack(DROP_LISTENER, std::move(listener)));
}

void DisplayMessageManager::postSetDisplayNumbers(bool on) { worker.post(pack(SET_DISPLAY_NUMBERS, on)); }

void DisplayMessageManager::postSetDisplayMidiInputEvents(bool on)
{
    worker.post(pack(SET_DISPLAY_MIDI_INPUT_EVENTS, on));
}

void DisplayMessageManager::postSetDisplayMidiOutputEvents(bool on)
{
    worker.post(pack(SET_DISPLAY_MIDI_OUTPUT_EVENTS, on));
}

void DisplayMessageManager::postSetMidiInputPorts(const MidiEngine::MidiInputPorts& ports)
{
    worker.post(pack(SET_MIDI_INPUT_PORTS, ports));
}

void DisplayMessageManager::postSetMidiOutputPorts(const MidiEngine::MidiOutputPorts& ports)
{
    worker.post(pack(SET_MIDI_OUTPUT_PORTS, ports));
}
}  // namespace Backend::Display
