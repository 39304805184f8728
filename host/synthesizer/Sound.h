#pragma once

#include <filesystem>

namespace Host
{
/// What the user has set for the built-in synthesizer.
struct Sound {
    int volume = 100;  ///< percent
    bool reverb = true;
    std::filesystem::path soundFont{};  ///< empty for the installed one
    bool connects = true;               ///< at the start of a JACK client, to the sound card

    bool operator==(const Sound&) const = default;
};
}  // namespace Host
