#pragma once

#include <jack/jack.h>

#include "host/clock/Transport.h"

namespace Host
{
/// The state of the graph's transport at the first frame of this period. It has a tempo if there is a timebase master;
/// a beat of the master counts as a quarter note. Process callback.
Transport findTransport(jack_client_t* client);
}  // namespace Host
