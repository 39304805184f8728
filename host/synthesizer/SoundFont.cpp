#include "host/synthesizer/SoundFont.h"

#include <string_view>
#include <system_error>

namespace Host
{
namespace
{
// Where distributions install them, the system's default first. The compressed `sf3` format loads slowly, so it comes
// last.
constexpr std::string_view KNOWN_PLACES[] = {
    "/usr/share/sounds/sf2/default-GM.sf2", "/usr/share/sounds/sf2/TimGM6mb.sf2",
    "/usr/share/sounds/sf2/FluidR3_GM.sf2", "/usr/share/sounds/sf3/default-GM.sf3",
    "/usr/share/soundfonts/default.sf2",    "/usr/share/soundfonts/FluidR3_GM.sf2",
};
}  // namespace

std::filesystem::path findSoundFont()
{
    std::error_code ignored;
    for (const std::filesystem::path place : KNOWN_PLACES)
        if (std::filesystem::is_regular_file(place, ignored)) return place;
    return {};
}
}  // namespace Host
