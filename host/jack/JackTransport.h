#pragma once

#include <jack/jack.h>

#include "host/clock/Transport.h"

namespace Host
{
/// How the graph's transport stands at the first frame of this period. It has a tempo if a timebase master gives bars
/// and beats; a beat of the master is a quarter note. Process callback.
Transport findTransport(jack_client_t* client);
}  // namespace Host
