#pragma once

#include <string>
#include <vector>

#include "platform/Export.h"

/// The names of the MIDI devices that programs can receive from, as the system lists them now; none if it has no list.
ORV_API std::vector<std::string> getMidiInputDevices();
