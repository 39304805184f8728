#pragma once

#include "host/synthesizer/Synthesizer.h"

namespace Host
{
/// The built-in synthesizer on the system's own sound output, rendered by a thread of FluidSynth.
class SoundCard
{
public:
    /// Throws std::runtime_error with one line for the user if no sound output opens. Prints nothing.
    SoundCard();

    /// Plays at once. May wait for the rendering thread, so it must not be called in a time slice.
    void play(const ShortMessage& message) { synthesizer.play(message); }

private:
    Synthesizer synthesizer;
    FluidPointer<fluid_audio_driver_t> driver;
};
}  // namespace Host
