#include "host/synthesizer/SoundFont.h"

#include <stdexcept>
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

std::unique_ptr<Synthesizer> make(const std::filesystem::path& soundFont, const Sound& sound, double sampleRate,
                                  SynthesizerUse use)
{
    auto synthesizer = std::make_unique<Synthesizer>(soundFont, sampleRate, use);
    synthesizer->setVolume(sound.volume);
    synthesizer->setReverb(sound.reverb);
    return synthesizer;
}
}  // namespace

std::unique_ptr<Synthesizer> makeSynthesizer(const Sound& sound, double sampleRate, SynthesizerUse use,
                                             std::vector<std::string>& news)
{
    if (!sound.soundFont.empty()) try {
            return make(sound.soundFont, sound, sampleRate, use);
        } catch (const std::runtime_error& reason) {
            news.push_back("The built-in synthesizer has the installed sounds: " + std::string(reason.what()) + ".");
        }
    return make(findSoundFont(), sound, sampleRate, use);
}

std::unique_ptr<Synthesizer> makeNextSynthesizer(const Sound& sound, double sampleRate, SynthesizerUse use,
                                                 std::vector<std::string>& news)
try {
    return make(sound.soundFont.empty() ? findSoundFont() : sound.soundFont, sound, sampleRate, use);
} catch (const std::runtime_error& reason) {
    news.push_back("The built-in synthesizer keeps its sounds: " + std::string(reason.what()) + ".");
    return nullptr;
}

std::filesystem::path findSoundFont()
{
    std::error_code ignored;
    for (const std::filesystem::path place : KNOWN_PLACES)
        if (std::filesystem::is_regular_file(place, ignored)) return place;
    return {};
}
}  // namespace Host
