#pragma once

#include "backend/input/values/ElementMap.h"
#include "backend/layers/Zone.h"

namespace Backend::Zones
{
/// The zones by their numbers.
using ZoneMap = Component::ElementMap<Zone, ZoneId>;
}  // namespace Backend::Zones
