#include "host/synthesizer/SoundCard.h"

#include <alsa/asoundlib.h>

#include <stdexcept>

#include "host/synthesizer/SoundFont.h"

namespace Host
{
namespace
{
constexpr double SAMPLE_RATE = 48000;

// Not "jack": it would start a server, and where a server runs this class is not used.
constexpr const char* DRIVERS[] = {"pipewire", "pulseaudio", "alsa"};

// ALSA requires a variadic function.
void ignoreError(const char*, int, const char*, int, const char*, ...) {}
}  // namespace

SoundCard::SoundCard() : synthesizer(findSoundFont(), SAMPLE_RATE, SynthesizerUse::manyThreads)
{
    snd_lib_error_set_handler(ignoreError);
    for (const char* name : DRIVERS) {
        if (fluid_settings_setstr(synthesizer.getSettings(), "audio.driver", name) != FLUID_OK) continue;
        driver.reset(new_fluid_audio_driver(synthesizer.getSettings(), synthesizer.getSynth()));
        if (driver) return;
    }
    throw std::runtime_error("no sound output can be opened");
}
}  // namespace Host
