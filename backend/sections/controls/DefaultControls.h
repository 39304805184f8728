#pragma once

#include <string>

#include "backend/model/ControlMap.h"
#include "platform/Export.h"

namespace Backend::Controls
{
/// The controls that a new user has: faders for what a keyboard's wheels and pedals send, boxes for bank and program.
/// The boxes below the faders hold the same events, so each shows what the other does.
ORV_API ControlMap defaultControls();

/// Their `Controls` element, as factory content holds it, one tag a line, indented by `indent` TABs.
ORV_API std::string defaultControlsXml(int indent);
}  // namespace Backend::Controls
