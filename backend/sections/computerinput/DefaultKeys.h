#pragma once

#include <string>

#include "platform/Export.h"

namespace Backend::ComputerInput
{
/// The bindings of a new user, as the "ComputerInput" element of a file, one tag a line, indented by `indent` TABs. The
/// two lower rows of letters play a piano from C3 in zone 1, the two upper ones from C4 in zone 0; the other keys
/// select and move controls, transpose zones, bend, and show screens.
ORV_API std::string defaultKeysXml(int indent);
}  // namespace Backend::ComputerInput
