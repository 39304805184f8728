#include "host/synthesizer/SoundCard.h"

#include <alsa/asoundlib.h>

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "host/synthesizer/SoundFont.h"

namespace Host
{
namespace
{
constexpr double SAMPLE_RATE = 48000;

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

SoundCard::SoundCard(const Sound& first, std::vector<std::string>& news) : sound(first)
{
    snd_lib_error_set_handler(ignoreError);
    const MutexLock guard(lock);
    // The sounds take megabytes, which are not loaded for nothing.
    if (hasOutput()) synthesizer = makeSynthesizer(sound, SAMPLE_RATE, SynthesizerUse::manyThreads, news);
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

/// Some sound outputs can be opened once only, so the old driver is closed before another synthesizer takes over.
void SoundCard::setSound(const Sound& newSound, std::vector<std::string>& news)
{
    const bool isOtherFont = newSound.soundFont != sound.soundFont;
    sound = newSound;
    {
        const MutexLock guard(lock);
        synthesizer->setVolume(sound.volume);
        synthesizer->setReverb(sound.reverb);
    }
    if (!isOtherFont) return;
    auto next = makeNextSynthesizer(sound, SAMPLE_RATE, SynthesizerUse::manyThreads, news);
    if (!next) return;
    const MutexLock guard(lock);
    next->takeChannels(*synthesizer);
    driver.reset();
    synthesizer = std::move(next);
    if (!open()) news.push_back("The built-in synthesizer is silent: the sound output cannot be opened again.");
}

void SoundCard::play(const ShortMessage& message)
{
    const MutexLock guard(lock);
    synthesizer->play(message);
}
}  // namespace Host
