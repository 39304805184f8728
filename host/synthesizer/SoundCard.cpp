#include "host/synthesizer/SoundCard.h"

#include <alsa/asoundlib.h>

#include <stdexcept>
#include <utility>

namespace Host
{
namespace
{
// Not "jack": it would start a server, and where a server runs this class is not used.
constexpr const char* DRIVERS[] = {"pipewire", "pulseaudio", "alsa"};

// ALSA requires a variadic function.
void ignoreError(const char*, int, const char*, int, const char*, ...) {}
}  // namespace

SoundCard::SoundCard(std::unique_ptr<Synthesizer> soundSource) : synthesizer(std::move(soundSource))
{
    snd_lib_error_set_handler(ignoreError);
    if (!open()) throw std::runtime_error("no sound output can be opened");
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
