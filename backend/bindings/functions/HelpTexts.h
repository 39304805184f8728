#pragma once

#include <string>

#include "backend/bindings/functions/HelpId.h"
#include "platform/Export.h"

namespace Backend
{
/// The help text of that number, in English; empty if there is none.
ORV_API std::string helpText(int helpId);
}  // namespace Backend
