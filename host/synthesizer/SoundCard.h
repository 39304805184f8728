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

    /// Sounds at once. May wait a moment for the rendering thread: not from within a time slice.
    void play(const ShortMessage& message) { synthesizer.play(message); }

private:
    Synthesizer synthesizer;
    FluidPointer<fluid_audio_driver_t> driver;
};
}  // namespace Host
