#include "host/player/Player.h"

#include "host/midi/ShortMessage.h"

namespace Host
{
namespace
{
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
    if (!message) return;
    port->play(*message, stamp);
    played = true;
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
