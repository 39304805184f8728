#include "backend/display/Display.h"

#include "api/DisplayListener.h"
#include "backend/display/DisplayLine.h"
#include "backend/messages/GuiMessages.h"

namespace Backend::Display
{
namespace
{
constexpr const char* BANNER = "Orvane " ORVANE_VERSION "\r\n";

template <class Ports>
std::string nameOf(const Ports& ports, int index)
{
    const bool isThere = index >= 0 && static_cast<std::size_t>(index) < ports.size();
    return isThere ? ports[static_cast<std::size_t>(index)].name : "???";
}
}  // namespace

void Display::start()
{
    text.append(BANNER);
    messageManager.start();
}

void Display::end()
{
    messageManager.stop();
    listener = nullptr;
}

/// Frees the listener at the end.
void Display::dropListener(std::unique_ptr<DisplayListener> dropped)
{
    if (listener == dropped.get()) listener = nullptr;
}

void Display::resendText()
{
    if (listener != nullptr) listener->setText(text.takeAll());
}

void Display::updateListener()
{
    if (listener != nullptr && text.hasUnsent()) listener->addText(text.takeUnsent());
}

void Display::keepReceivedEvents(bool on)
{
    receivedEvents.reset();
    if (on) receivedEvents.emplace();
}

void Display::sendReceivedEvents(const WindowHandle& window)
{
    if (receivedEvents && receivedEvents->takeChanged())
        notify(window, GuiMessage::RECEIVED_EVENTS, receivedEvents->getEvents());
}

void Display::addMidiInputEvent(const MidiEngine::OrvMidiMessage& event)
{
    if (receivedEvents) receivedEvents->add(event);
    if (!displayMidiInputEvents) return;
    text.append(formatLine(takeNumber() + "> " + nameOf(midiInputPorts, event.getInput()), event.getMidiMessage()));
}

void Display::addMidiOutputEvent(const MidiEngine::OrvMidiMessage& event)
{
    if (!displayMidiOutputEvents) return;
    text.append(formatLine(takeNumber() + nameOf(midiOutputPorts, event.getOutput()), event.getMidiMessage()));
}

std::string Display::takeNumber() { return displayNumbers ? std::to_string(lineNumber++) + "  " : ""; }
}  // namespace Backend::Display
