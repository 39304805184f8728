#pragma once

#include <filesystem>
#include <memory>

#include <fluidsynth.h>

#include "host/midi/ShortMessage.h"

namespace Host
{
/// Frees what FluidSynth made.
struct FluidDeleter {
    void operator()(fluid_settings_t* settings) const { delete_fluid_settings(settings); }
    void operator()(fluid_synth_t* synth) const { delete_fluid_synth(synth); }
    void operator()(fluid_audio_driver_t* driver) const { delete_fluid_audio_driver(driver); }
};
template <class Object>
using FluidPointer = std::unique_ptr<Object, FluidDeleter>;

/// The default settings. From here on FluidSynth prints nothing.
FluidPointer<fluid_settings_t> makeFluidSettings();

/// Whether several threads use a synthesizer at once; for a single thread it takes no lock.
enum class SynthesizerUse { oneThread, manyThreads };

/// The built-in General MIDI synthesizer: sixteen channels, the tenth for drums. It prints nothing.
class Synthesizer
{
public:
    /// Throws std::runtime_error with one line for the user if there is no sound font, or it cannot be loaded, or the
    /// sample rate (per second) is not one from 8000 to 96000.
    Synthesizer(const std::filesystem::path& soundFont, double sampleRate, SynthesizerUse use);

    /// In percent, 0 to 100. Neither allocates nor waits with `oneThread`, as the operation below.
    void setVolume(int percent);
    void setReverb(bool on);

    /// Sample rate, programs, controllers, pitch bend and its range are those of another synthesizer; notes that sound
    /// there do not come along. No other thread uses either. It allocates only if the rates differ.
    void takeChannels(Synthesizer& other);

    /// Takes effect with the next block of 64 frames that is rendered.
    void play(const ShortMessage& message);

    /// Fills both with the next `frames` frames, full scale 1.
    void render(float* left, float* right, int frames);

    /// Takes effect with the next frame; a rate outside the range is ignored. May allocate.
    void setRate(double sampleRate);

    /// For an audio driver. Owned by this object.
    fluid_settings_t* getSettings() { return settings.get(); }
    fluid_synth_t* getSynth() { return synth.get(); }

private:
    FluidPointer<fluid_settings_t> settings;
    FluidPointer<fluid_synth_t> synth;
    double rate;
    int volume = 100;
    bool reverb = true;
    bool isSilent = false;  // since the last block
};
}  // namespace Host
