#include "backend/display/Display.h"

#include <chrono>
#include <iomanip>
#include <sstream>

#include "api/DisplayListener.h"
#include "backend/display/DisplayLine.h"
#include "backend/messages/GuiMessages.h"
#include "platform/Clock.h"

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

/// Here and now, to the millisecond: "09:05:00.042".
std::string timeOfDay()
{
    using namespace std::chrono;
    const auto now = time_point_cast<milliseconds>(system_clock::now());
    const std::time_t second = system_clock::to_time_t(floor<seconds>(now));
    const std::tm local = localTime(second);
    std::ostringstream text;
    text << std::put_time(&local, "%H:%M:%S.") << std::setw(3) << std::setfill('0')
         << (now.time_since_epoch() % seconds(1)).count();
    return text.str();
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
    text.append(formatLine(takePrefix() + "> " + nameOf(midiInputPorts, event.getInput()), event.getMidiMessage()));
}

void Display::addMidiOutputEvent(const MidiEngine::OrvMidiMessage& event)
{
    if (!displayMidiOutputEvents) return;
    text.append(formatLine(takePrefix() + nameOf(midiOutputPorts, event.getOutput()), event.getMidiMessage()));
}

/// What a line begins with, as the settings say.
std::string Display::takePrefix()
{
    const std::string number = displayNumbers ? std::to_string(lineNumber++) + "  " : "";
    return displayTimes ? number + timeOfDay() + "  " : number;
}
}  // namespace Backend::Display
