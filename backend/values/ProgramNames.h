#pragma once

#include <string>

#include "platform/Export.h"

namespace Backend::MidiEngine
{
/// The display name of program 0 to 127 (after General MIDI level 1); empty for other numbers.
ORV_API std::string getProgramName(int program);
}  // namespace Backend::MidiEngine
