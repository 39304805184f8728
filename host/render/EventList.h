#pragma once

#include <string>
#include <vector>

#include "host/render/RenderPlayer.h"

namespace Host
{
/// The event list: comma-separated text, a header line, then one line per event in the order in which the player got
/// them: pulse, output (-1 for none), status with its channel, and both data bytes as unsigned numbers.
std::string formatEventList(const std::vector<PlayedEvent>& events);
}  // namespace Host
