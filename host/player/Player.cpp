#include "host/player/Player.h"

#include <cmath>

#include "host/midi/ShortMessage.h"

namespace Host
{
namespace
{
constexpr double DIFFERENT_TEMPO = 0.6;  // so that one between two whole ones does not flicker
constexpr int HEARINGS = 12;             // until one that was told must have arrived

/// The port of that number, or null.
template <class List>
auto* portAt(const List& ports, int index)
{
    return index >= 0 && static_cast<std::size_t>(index) < ports.size() ? ports[static_cast<std::size_t>(index)].get()
                                                                        : nullptr;
}
}  // namespace

Player::Player(const Ports& allPorts, Event& wishes) : ports(allPorts), wish(wishes) {}

void Player::playMidi(const Backend::MidiEngine::OrvMidiMessage& event)
{
    OutputPort* port = portAt(ports.outputs(), event.getOutput());
    if (port == nullptr) return;
    const auto message = toShortMessage(event);
    if (!message || comesBack(event, *message)) return;
    port->play(*message, stamp);
    played = true;
}

/// The clock that leads is passed on to the clock that is sent; what the layers make of it there would be a second one.
bool Player::comesBack(const Backend::MidiEngine::OrvMidiMessage& event, const ShortMessage& message) const
{
    return event.getOutput() == clockOut && event.getInput() >= 0 && event.getInput() == getClockSource() &&
           isOfClock(message);
}

void Player::hearTempo(double bpm)
{
    const int program = getTempo();
    if (++hearings < HEARINGS || (toldTempo == program && std::abs(bpm - program) < DIFFERENT_TEMPO)) return;
    toldTempo = static_cast<int>(std::lround(bpm));
    if (toldTempo == program) return;
    hearings = 0;
    heardTempo.store(toldTempo);
    wish.set();
}

void Player::enableMidiInput(int index, bool enabled)
{
    InputPort* port = portAt(ports.inputs(), index);
    if (port == nullptr) return;
    port->wanted.store(enabled);
    wish.set();
}

void Player::enableMidiOutput(int index, bool enabled)
{
    OutputPort* port = portAt(ports.outputs(), index);
    if (port != nullptr) port->wanted.store(enabled);
    outputWish.store(true);
    wish.set();
}

void Player::takeClock()
{
    const ThreadId self = currentThreadId();
    if (clockThread.load(std::memory_order_relaxed) != self) clockThread.store(self, std::memory_order_release);
}
}  // namespace Host
