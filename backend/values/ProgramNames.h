#pragma once

#include <string>

#include "platform/Export.h"

namespace Backend::MidiEngine
{
/// The name of program 0 to 127 (after General MIDI level 1, as the screens have always spelled it); empty outside.
ORV_API std::string getProgramName(int program);
}  // namespace Backend::MidiEngine
