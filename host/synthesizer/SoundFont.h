#pragma once

#include <filesystem>

namespace Host
{
/// The installed General MIDI sound font; an empty path if there is none.
std::filesystem::path findSoundFont();
}  // namespace Host
