#pragma once

namespace Host
{
/// The name under which the program keeps its settings, with or without a window and while it renders.
inline constexpr const char* APPLICATION_NAME = "Orvane 3";
}  // namespace Host
