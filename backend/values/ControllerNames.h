#pragma once

#include <string>

#include "platform/Export.h"

namespace Backend::MidiEngine
{
/// The name of controller 0 to 127 as the screens show it (after MIDI 1.0, table III); empty outside.
ORV_API std::string getControllerName(int controller);
}  // namespace Backend::MidiEngine
