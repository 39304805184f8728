#pragma once

#include <string>

#include "platform/Export.h"

namespace Backend::MidiEngine
{
/// The display name of a controller, 0 to 127 (after MIDI 1.0, table III); empty for other numbers.
ORV_API std::string getControllerName(int controller);
}  // namespace Backend::MidiEngine
