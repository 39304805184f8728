#pragma once

#include <string>

#include "backend/model/ControlMap.h"
#include "platform/Export.h"

namespace Backend::Controls
{
/// The controls of a new user: faders for the wheels and pedals of a keyboard, edits for bank and program. The edits
/// below the faders have the same events as these, so each shows the value of the other.
ORV_API ControlMap defaultControls();

/// Their `Controls` element for the factory content, one tag a line, indented by `indent` TABs.
ORV_API std::string defaultControlsXml(int indent);
}  // namespace Backend::Controls
