#include "backend/model/WindowMove.h"

#include "backend/values/Scaling.h"

namespace Backend
{
namespace
{
constexpr std::int32_t HIGHEST_DATA = 127;
}

RelativeFixedValue WindowCoordinate::inPixels(std::int32_t screenSize) const
{
    if (unit == Unit::pixels) return value;
    return {.relative = false, .value = scaleRange(0, HIGHEST_DATA, value.value, 0, screenSize)};
}
}  // namespace Backend
