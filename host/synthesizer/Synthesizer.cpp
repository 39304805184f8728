#include "host/synthesizer/Synthesizer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <fstream>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace Host
{
namespace
{
constexpr double LOWEST_RATE = 8000;
constexpr double HIGHEST_RATE = 96000;
constexpr double GAIN = 0.6;        // a full chord at full velocity stays below full scale
constexpr float INAUDIBLE = 1e-5F;  // -100 dB
constexpr int ALL_GROUPS = -1;
constexpr int LAST_WITH_A_VALUE = 95;                  // of the controllers
constexpr int PARTS_OF_OTHERS[] = {0x06, 0x20, 0x26};  // of a registered parameter or a bank
constexpr std::uint8_t SYSTEM_RESET = 0xFF;

bool isPossible(double sampleRate) { return sampleRate >= LOWEST_RATE && sampleRate <= HIGHEST_RATE; }

/// Other files would make the libraries of FluidSynth write on standard error.
bool isSoundFont(const std::filesystem::path& file)
{
    std::array<char, 12> head{};
    std::ifstream(file, std::ios::binary).read(head.data(), head.size());
    const std::string_view text(head.data(), head.size());
    return text.starts_with("RIFF") && text.ends_with("sfbk");
}

}  // namespace

FluidPointer<fluid_settings_t> makeFluidSettings()
{
    for (const int level : {FLUID_PANIC, FLUID_ERR, FLUID_WARN, FLUID_INFO, FLUID_DBG})
        fluid_set_log_function(
            level, [](int, const char*, void*) {}, nullptr);
    return FluidPointer<fluid_settings_t>(new_fluid_settings());
}

Synthesizer::Synthesizer(const std::filesystem::path& soundFont, double sampleRate, SynthesizerUse use)
    : rate(sampleRate)
{
    if (soundFont.empty()) throw std::runtime_error("no General MIDI sound font is installed");
    if (!isSoundFont(soundFont)) throw std::runtime_error(soundFont.string() + " is not a sound font");
    if (!isPossible(sampleRate)) throw std::runtime_error("the synthesizer plays at 8000 to 96000 Hz only");
    settings = makeFluidSettings();
    fluid_settings_setnum(settings.get(), "synth.sample-rate", sampleRate);
    fluid_settings_setnum(settings.get(), "synth.gain", GAIN);
    fluid_settings_setint(settings.get(), "synth.threadsafe-api", use == SynthesizerUse::manyThreads ? 1 : 0);
    synth.reset(new_fluid_synth(settings.get()));
    if (!synth || fluid_synth_sfload(synth.get(), soundFont.c_str(), 1) == FLUID_FAILED)
        throw std::runtime_error("the sound font " + soundFont.string() + " cannot be loaded");
}

void Synthesizer::setVolume(int percent)
{
    if (percent == std::exchange(volume, percent)) return;
    fluid_synth_set_gain(synth.get(), static_cast<float>(GAIN * percent / 100));
}

void Synthesizer::setReverb(bool on)
{
    if (on != std::exchange(reverb, on)) fluid_synth_reverb_on(synth.get(), ALL_GROUPS, on ? 1 : 0);
}

void Synthesizer::takeChannels(Synthesizer& other)
{
    if (rate != other.rate) setRate(other.rate);
    fluid_synth_t* const from = other.synth.get();
    fluid_synth_t* const to = synth.get();
    for (int channel = 0; channel < fluid_synth_count_midi_channels(to); ++channel) {
        for (int controller = 1; controller <= LAST_WITH_A_VALUE; ++controller) {
            int before = 0;
            int value = 0;
            fluid_synth_get_cc(to, channel, controller, &before);
            fluid_synth_get_cc(from, channel, controller, &value);
            if (value != before && std::ranges::count(PARTS_OF_OTHERS, controller) == 0)
                fluid_synth_cc(to, channel, controller, value);
        }
        int value = 0;
        fluid_synth_get_pitch_bend(from, channel, &value);
        fluid_synth_pitch_bend(to, channel, value);
        fluid_synth_get_pitch_wheel_sens(from, channel, &value);
        fluid_synth_pitch_wheel_sens(to, channel, value);
        int soundFont = 0;
        int bank = 0;
        int program = 0;
        fluid_synth_get_program(from, channel, &soundFont, &bank, &program);
        fluid_synth_bank_select(to, channel, bank);
        fluid_synth_program_change(to, channel, program);
    }
}

void Synthesizer::play(const ShortMessage& message)
{
    isSilent = false;
    fluid_synth_t* to = synth.get();
    const int channel = message.channel();
    const int d1 = message.bytes[1];
    const int d2 = message.bytes[2];
    switch (message.kind()) {
        case 0x80:
            fluid_synth_noteoff(to, channel, d1);
            break;
        case 0x90:
            fluid_synth_noteon(to, channel, d1, d2);
            break;
        case 0xA0:
            fluid_synth_key_pressure(to, channel, d1, d2);
            break;
        case 0xB0:
            fluid_synth_cc(to, channel, d1, d2);
            break;
        case 0xC0:
            fluid_synth_program_change(to, channel, d1);
            break;
        case 0xD0:
            fluid_synth_channel_pressure(to, channel, d1);
            break;
        case 0xE0:
            fluid_synth_pitch_bend(to, channel, d2 << 7 | d1);
            break;
        default:
            if (message.bytes[0] == SYSTEM_RESET) fluid_synth_system_reset(to);
    }
}

/// Once the voices and their reverberation have died away, until the next note, there is nothing to compute.
void Synthesizer::render(float* left, float* right, int frames)
{
    if (isSilent) {
        std::fill_n(left, frames, 0.0F);
        std::fill_n(right, frames, 0.0F);
        return;
    }
    fluid_synth_write_float(synth.get(), frames, left, 0, 1, right, 0, 1);
    const auto isAudible = [](float sample) { return std::abs(sample) > INAUDIBLE; };
    isSilent = fluid_synth_get_active_voice_count(synth.get()) == 0 && std::none_of(left, left + frames, isAudible) &&
               std::none_of(right, right + frames, isAudible);
}

// Deprecated, but the only function that keeps the programs and controllers of the channels.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
void Synthesizer::setRate(double sampleRate)
{
    if (!isPossible(sampleRate)) return;
    rate = sampleRate;
    fluid_synth_set_sample_rate(synth.get(), static_cast<float>(sampleRate));
}
#pragma GCC diagnostic pop
}  // namespace Host
