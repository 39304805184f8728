#pragma once

#include <string>
#include <vector>

#include "platform/Export.h"

/// The names of the MIDI devices that a program can listen to, as the system lists them now; none where it has no such
/// list.
ORV_API std::vector<std::string> getMidiInputDevices();
