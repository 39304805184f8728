#include "host/jack/JackTransport.h"

#include <jack/transport.h>

#include "host/clock/ClockFollower.h"

namespace Host
{
Transport findTransport(jack_client_t* client)
{
    jack_position_t position{};
    Transport transport;
    transport.rolling = jack_transport_query(client, &position) == JackTransportRolling;
    if (position.frame_rate > 0) transport.seconds = position.frame / static_cast<double>(position.frame_rate);
    const double bpm = position.beats_per_minute;
    if ((position.valid & JackPositionBBT) == 0 || position.ticks_per_beat <= 0) return transport;
    if (!(bpm >= ClockFollower::LOWEST_TEMPO && bpm <= ClockFollower::HIGHEST_TEMPO)) return transport;
    transport.bpm = bpm;
    transport.beats =
        (position.bar - 1.0) * position.beats_per_bar + (position.beat - 1.0) + position.tick / position.ticks_per_beat;
    return transport;
}
}  // namespace Host
