#pragma once

#include <cstdint>
#include <vector>

#include "host/render/RenderPlayer.h"

namespace Host
{
/// Renders the player's events with the built-in synthesizer into a WAV file (RIFF, 16-bit PCM, stereo, 48 kHz):
/// sixteen channels for each output, up to pulse `end` and two seconds of release after it. Throws InputError if the
/// program has no synthesizer or it has no sound font, or if the sound would be longer than a WAV file can hold (about six hours).
std::vector<std::uint8_t> renderSound(const RenderPlayer& player, std::int32_t end);
}  // namespace Host
