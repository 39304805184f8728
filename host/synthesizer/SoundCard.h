#pragma once

#include <functional>
#include <memory>

#include "host/synthesizer/Sound.h"
#include "host/synthesizer/Synthesizer.h"

namespace Host
{
/// The built-in synthesizer on the system's own sound output, rendered by a thread of FluidSynth.
class SoundCard
{
public:
    /// Throws std::runtime_error with one line for the user if no sound output opens. The synthesizer is made if there
    /// is one. Prints nothing.
    explicit SoundCard(const std::function<std::unique_ptr<Synthesizer>()>& makeSynthesizer);

    /// Volume and reverb. Any thread.
    void setSound(const Sound& sound);

    /// Another synthesizer takes over, with the programs and controllers; notes that sound end. False if the sound
    /// output cannot be opened again. Not while another thread calls `play`.
    bool replace(std::unique_ptr<Synthesizer> next);

    /// Plays at once. May wait for the rendering thread, so it must not be called in a time slice.
    void play(const ShortMessage& message) { synthesizer->play(message); }

    static constexpr double SAMPLE_RATE = 48000;

private:
    bool open();

    std::unique_ptr<Synthesizer> synthesizer;
    FluidPointer<fluid_audio_driver_t> driver;
};
}  // namespace Host
