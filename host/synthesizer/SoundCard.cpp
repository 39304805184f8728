#include "host/synthesizer/SoundCard.h"

#include <alsa/asoundlib.h>

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace Host
{
namespace
{
// Not "jack": it would start a server, and where a server runs this class is not used.
constexpr const char* DRIVERS[] = {"pipewire", "pulseaudio", "alsa"};

int renderNothing(void*, int frames, int, float*[], int channels, float* out[])
{
    for (int channel = 0; channel < channels; ++channel) std::fill_n(out[channel], frames, 0.0F);
    return FLUID_OK;
}

bool hasOutput()
{
    const auto settings = makeFluidSettings();
    return std::ranges::any_of(DRIVERS, [&](const char* name) {
        if (fluid_settings_setstr(settings.get(), "audio.driver", name) != FLUID_OK) return false;
        return FluidPointer<fluid_audio_driver_t>(new_fluid_audio_driver2(settings.get(), renderNothing, nullptr)) !=
               nullptr;
    });
}

// ALSA requires a variadic function.
void ignoreError(const char*, int, const char*, int, const char*, ...) {}
}  // namespace

SoundCard::SoundCard(const std::function<std::unique_ptr<Synthesizer>()>& makeSynthesizer)
{
    snd_lib_error_set_handler(ignoreError);
    // The sounds take megabytes, which are not loaded for nothing.
    if (hasOutput()) synthesizer = makeSynthesizer();
    if (!synthesizer || !open()) throw std::runtime_error("no sound output can be opened");
}

bool SoundCard::open()
{
    for (const char* name : DRIVERS) {
        if (fluid_settings_setstr(synthesizer->getSettings(), "audio.driver", name) != FLUID_OK) continue;
        driver.reset(new_fluid_audio_driver(synthesizer->getSettings(), synthesizer->getSynth()));
        if (driver) return true;
    }
    return false;
}

void SoundCard::setSound(const Sound& sound)
{
    synthesizer->setVolume(sound.volume);
    synthesizer->setReverb(sound.reverb);
}

/// Some sound outputs can be opened once only, so the old driver is closed first.
bool SoundCard::replace(std::unique_ptr<Synthesizer> next)
{
    next->takeChannels(*synthesizer);
    driver.reset();
    synthesizer = std::move(next);
    return open();
}
}  // namespace Host
