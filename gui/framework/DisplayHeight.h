#pragma once

namespace Gui
{
/// The limits of the height of the event display, in logical pixels.
namespace DisplayHeight
{
inline constexpr int LOWEST = 60;
inline constexpr int HIGHEST = 600;
}  // namespace DisplayHeight
}  // namespace Gui
