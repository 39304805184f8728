#include "host/player/Player.h"

#include <cmath>

#include "host/midi/ShortMessage.h"

namespace Host
{
namespace
{
constexpr double LEAST_CHANGE =
    0.6;  // beats per minute; above 0.5, so that a tempo between two numbers does not flicker
constexpr int TICKS_BETWEEN_REPORTS = 12;  // until then the program has the tempo that was reported last

/// The port of that number, or null.
template <class List>
auto* portAt(const List& ports, int index)
{
    return index >= 0 && static_cast<std::size_t>(index) < ports.size() ? ports[static_cast<std::size_t>(index)].get()
                                                                        : nullptr;
}
}  // namespace

Player::Player(const Ports& allPorts, Event& requestEvent) : ports(allPorts), requested(requestEvent) {}

void Player::playMidi(const Backend::MidiEngine::OrvMidiMessage& event)
{
    OutputPort* port = portAt(ports.outputs(), event.getOutput());
    if (port == nullptr) return;
    const auto message = toShortMessage(event);
    if (!message || isForwardedClock(event, *message)) return;
    if (message->startsNote() && !noteOnsAccepted.load()) return;
    port->play(*message, stamp);
    markPlayed();
}

/// The external clock is forwarded by `ClockSender`; the same messages through the layers would arrive there twice.
bool Player::isForwardedClock(const Backend::MidiEngine::OrvMidiMessage& event, const ShortMessage& message) const
{
    return event.getOutput() == clockOut.load(std::memory_order_relaxed) && event.getInput() >= 0 &&
           event.getInput() == getClockSource() && isClockMessage(message);
}

void Player::reportExternalTempo(double bpm)
{
    const int program = getTempo();
    if (++ticksSinceReport < TICKS_BETWEEN_REPORTS ||
        (reportedTempo == program && std::abs(bpm - program) < LEAST_CHANGE))
        return;
    reportedTempo = static_cast<int>(std::lround(bpm));
    if (reportedTempo == program) return;
    ticksSinceReport = 0;
    externalTempo.store(reportedTempo);
    requested.set();
}

void Player::enableMidiInput(int index, bool enabled)
{
    InputPort* port = portAt(ports.inputs(), index);
    if (port == nullptr) return;
    port->wanted.store(enabled);
    requested.set();
}

void Player::enableMidiOutput(int index, bool enabled)
{
    OutputPort* port = portAt(ports.outputs(), index);
    if (port != nullptr) port->wanted.store(enabled);
    outputRequest.store(true);
    requested.set();
}

void Player::setClockThread()
{
    const ThreadId self = currentThreadId();
    if (clockThread.load(std::memory_order_relaxed) != self) clockThread.store(self, std::memory_order_release);
}
}  // namespace Host
