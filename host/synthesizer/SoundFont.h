#pragma once

#include <filesystem>

namespace Host
{
/// The General MIDI sound font that the system has, an empty path if it has none.
std::filesystem::path findSoundFont();
}  // namespace Host
