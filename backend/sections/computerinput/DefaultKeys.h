#pragma once

#include <string>

#include "platform/Export.h"

namespace Backend::ComputerInput
{
/// What the keys do to begin with, as the "ComputerInput" element of a file, one tag a line, indented by `indent` TABs:
/// the two lower rows of letters and the two upper ones are a piano each, in zone 1 from C3 and in zone 0 from C4; the
/// other keys select and move controls, transpose zones, bend, and show screens.
ORV_API std::string defaultKeysXml(int indent);
}  // namespace Backend::ComputerInput
