#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/synthesizer/SoundOutput.h"
#include "host/synthesizer/Synthesizer.h"
#include "platform/Mutex.h"

namespace Host
{
/// The built-in synthesizer on the system's own sound output, rendered by a thread of FluidSynth.
class SoundCard final : public SoundOutput
{
public:
    /// See `OpenSoundOutput`.
    SoundCard(const Sound& first, std::vector<std::string>& news);

    void setSound(const Sound& newSound, std::vector<std::string>& news) override EXCLUDES(lock);
    void play(const ShortMessage& message) override EXCLUDES(lock);

private:
    bool open() REQUIRES(lock);

    Sound sound;  // the thread of `setSound`

    Mutex lock;
    std::unique_ptr<Synthesizer> synthesizer GUARDED_BY(lock);
    FluidPointer<fluid_audio_driver_t> driver GUARDED_BY(lock);
};
}  // namespace Host
