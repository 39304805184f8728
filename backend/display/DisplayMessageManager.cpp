#include "backend/display/DisplayMessageManager.h"

#include <array>
#include <utility>

#include "api/DisplayListener.h"
#include "backend/display/Display.h"
#include "backend/messages/TypedMessage.h"

namespace Backend::Display
{
namespace
{
constexpr unsigned int STOP = 32869;

constexpr TypedMessage<std::string> ADD_TEXT{32870, "AddText"};
constexpr TypedMessage<> RESEND_TEXT{32871, "ResendText"};
constexpr TypedMessage<> UPDATE_LISTENER{32872, "UpdateListener"};
constexpr TypedMessage<MidiEngine::OrvMidiMessage> MIDI_INPUT_EVENT{32873, "MidiInputEvent"};
constexpr TypedMessage<MidiEngine::OrvMidiMessage> MIDI_OUTPUT_EVENT{32874, "MidiOutputEvent"};
constexpr TypedMessage<DisplayListener*> SET_LISTENER{32875, "SetListener"};
constexpr TypedMessage<bool> SET_DISPLAY_NUMBERS{32876, "SetDisplayNumbers"};
constexpr TypedMessage<bool> SET_DISPLAY_MIDI_INPUT_EVENTS{32877, "SetDisplayMidiInputEvents"};
constexpr TypedMessage<bool> SET_DISPLAY_MIDI_OUTPUT_EVENTS{32878, "SetDisplayMidiOutputEvents"};
constexpr TypedMessage<MidiEngine::MidiInputPorts> SET_MIDI_INPUT_PORTS{32879, "SetMidiInputPorts"};
constexpr TypedMessage<MidiEngine::MidiOutputPorts> SET_MIDI_OUTPUT_PORTS{32880, "SetMidiOutputPorts"};
constexpr TypedMessage<std::unique_ptr<DisplayListener>> DROP_LISTENER{32881, "DropListener"};

constexpr TypedMessage<bool> KEEP_RECEIVED_EVENTS{32882, "KeepReceivedEvents"};
constexpr TypedMessage<WindowHandle> SEND_RECEIVED_EVENTS{32883, "SendReceivedEvents"};
constexpr TypedMessage<bool> SET_DISPLAY_TIMES{32891, "SetDisplayTimes"};

/// Events of slices that can wait without an allocation.
constexpr std::size_t ROOM_FOR_EVENTS = 1024;

constexpr auto COMMANDS = std::to_array<Command<Display>>({
    on<ADD_TEXT, &Display::addText>(),
    on<RESEND_TEXT, &Display::resendText>(),
    on<UPDATE_LISTENER, &Display::updateListener>(),
    on<MIDI_INPUT_EVENT, &Display::addMidiInputEvent>(),
    on<MIDI_OUTPUT_EVENT, &Display::addMidiOutputEvent>(),
    on<SET_LISTENER, &Display::setListener>(),
    on<SET_DISPLAY_NUMBERS, &Display::setDisplayNumbers>(),
    on<SET_DISPLAY_MIDI_INPUT_EVENTS, &Display::setDisplayMidiInputEvents>(),
    on<SET_DISPLAY_MIDI_OUTPUT_EVENTS, &Display::setDisplayMidiOutputEvents>(),
    on<SET_MIDI_INPUT_PORTS, &Display::setMidiInputPorts>(),
    on<SET_MIDI_OUTPUT_PORTS, &Display::setMidiOutputPorts>(),
    on<DROP_LISTENER, &Display::dropListener>(),
    on<KEEP_RECEIVED_EVENTS, &Display::keepReceivedEvents>(),
    on<SEND_RECEIVED_EVENTS, &Display::sendReceivedEvents>(),
    on<SET_DISPLAY_TIMES, &Display::setDisplayTimes>(),
});
}  // namespace

DisplayMessageManager::DisplayMessageManager(Display& shown)
    : display(shown),
      worker(
          "orv-display", STOP, [this](Message& message) { handleMessage(message); }, ROOM_FOR_EVENTS)
{
}

void DisplayMessageManager::handleMessage(Message& message) { execute<Display>(COMMANDS, display, message); }

void DisplayMessageManager::postAddText(const std::string& text) { worker.post(ADD_TEXT(text)); }

void DisplayMessageManager::postResendText() { worker.post(RESEND_TEXT()); }

void DisplayMessageManager::postUpdateListener() { worker.post(UPDATE_LISTENER()); }

void DisplayMessageManager::postMidiInputEvent(const MidiEngine::OrvMidiMessage& event)
{
    worker.post(MIDI_INPUT_EVENT(event));
}

void DisplayMessageManager::postMidiOutputEvent(const MidiEngine::OrvMidiMessage& event)
{
    worker.post(MIDI_OUTPUT_EVENT(event));
}

void DisplayMessageManager::postMidiInputEventFromSlice(const MidiEngine::OrvMidiMessage& event)
{
    worker.queue().postFromSlice(MIDI_INPUT_EVENT(event));
}

void DisplayMessageManager::postMidiOutputEventFromSlice(const MidiEngine::OrvMidiMessage& event)
{
    worker.queue().postFromSlice(MIDI_OUTPUT_EVENT(event));
}

void DisplayMessageManager::setListener(DisplayListener* listener) { worker.post(SET_LISTENER(listener)); }

void DisplayMessageManager::dropListener(std::unique_ptr<DisplayListener> listener)
{
    worker.post(DROP_LISTENER(std::move(listener)));
}

void DisplayMessageManager::postKeepReceivedEvents(bool on) { worker.post(KEEP_RECEIVED_EVENTS(on)); }

void DisplayMessageManager::postSendReceivedEvents(const WindowHandle& window)
{
    worker.post(SEND_RECEIVED_EVENTS(window));
}

void DisplayMessageManager::postSetDisplayNumbers(bool on) { worker.post(SET_DISPLAY_NUMBERS(on)); }
void DisplayMessageManager::postSetDisplayTimes(bool on) { worker.post(SET_DISPLAY_TIMES(on)); }

void DisplayMessageManager::postSetDisplayMidiInputEvents(bool on) { worker.post(SET_DISPLAY_MIDI_INPUT_EVENTS(on)); }

void DisplayMessageManager::postSetDisplayMidiOutputEvents(bool on) { worker.post(SET_DISPLAY_MIDI_OUTPUT_EVENTS(on)); }

void DisplayMessageManager::postSetMidiInputPorts(const MidiEngine::MidiInputPorts& ports)
{
    worker.post(SET_MIDI_INPUT_PORTS(ports));
}

void DisplayMessageManager::postSetMidiOutputPorts(const MidiEngine::MidiOutputPorts& ports)
{
    worker.post(SET_MIDI_OUTPUT_PORTS(ports));
}
}  // namespace Backend::Display
