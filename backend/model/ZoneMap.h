#pragma once

#include "backend/model/Zone.h"
#include "backend/values/ElementMap.h"

namespace Backend::Zones
{
/// The zones by their numbers.
using ZoneMap = Component::ElementMap<Zone, ZoneId>;
}  // namespace Backend::Zones
