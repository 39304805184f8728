#include "host/render/SoundFile.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <map>
#include <memory>
#include <string_view>

#include "host/common/InputError.h"
#include "host/midi/ShortMessage.h"
#include "host/render/TempoMap.h"
#include "host/synthesizer/SoundFont.h"
#include "host/synthesizer/Synthesizer.h"

namespace Host
{
namespace
{
constexpr int SAMPLE_RATE = 48000;
constexpr int CHANNELS = 2;
constexpr int BYTES_PER_FRAME = CHANNELS * 2;
constexpr int RELEASE_SECONDS = 2;
constexpr int BLOCK = 64;  // frames; the synthesizer's own
constexpr std::size_t HEADER_SIZE = 44;

/// The header of a WAV file (Microsoft RIFF, WAVE_FORMAT_PCM), then room for the frames.
std::vector<std::uint8_t> wavFile(std::int64_t frames)
{
    const std::int64_t dataSize = frames * BYTES_PER_FRAME;
    if (dataSize > std::numeric_limits<std::uint32_t>::max() - static_cast<std::int64_t>(HEADER_SIZE))
        throw InputError("the performance is too long for a sound file");
    std::vector<std::uint8_t> file;
    file.reserve(HEADER_SIZE + static_cast<std::size_t>(dataSize));
    const auto text = [&](std::string_view word) { file.insert(file.end(), word.begin(), word.end()); };
    const auto number = [&](std::int64_t value, int bytes) {
        for (; bytes > 0; --bytes, value >>= 8) file.push_back(static_cast<std::uint8_t>(value));
    };
    text("RIFF");
    number(dataSize + static_cast<std::int64_t>(HEADER_SIZE) - 8, 4);
    text("WAVEfmt ");
    number(16, 4);
    number(1, 2);
    number(CHANNELS, 2);
    number(SAMPLE_RATE, 4);
    number(SAMPLE_RATE * BYTES_PER_FRAME, 4);
    number(BYTES_PER_FRAME, 2);
    number(16, 2);
    text("data");
    number(dataSize, 4);
    return file;
}

/// The mix of all outputs, with one synthesizer for each output that plays.
class Mix
{
public:
    void play(int output, const ShortMessage& message)
    {
        auto& synthesizer = synthesizers[output];
        if (!synthesizer)
            synthesizer = std::make_unique<Synthesizer>(findSoundFont(), SAMPLE_RATE, SynthesizerUse::oneThread);
        synthesizer->play(message);
    }

    void appendTo(std::vector<std::uint8_t>& file, std::int64_t frames)
    {
        for (; frames > 0; frames -= BLOCK) appendBlock(file, static_cast<int>(std::min<std::int64_t>(frames, BLOCK)));
    }

private:
    using Block = std::array<float, BLOCK>;

    void appendBlock(std::vector<std::uint8_t>& file, int frames)
    {
        Block left{};
        Block right{};
        for (auto& [output, synthesizer] : synthesizers) {
            Block l{};
            Block r{};
            synthesizer->render(l.data(), r.data(), frames);
            std::ranges::transform(left, l, left.begin(), std::plus());
            std::ranges::transform(right, r, right.begin(), std::plus());
        }
        for (std::size_t i = 0; i < static_cast<std::size_t>(frames); ++i) {
            appendSample(file, left[i]);
            appendSample(file, right[i]);
        }
    }

    static void appendSample(std::vector<std::uint8_t>& file, float sample)
    {
        const auto value = static_cast<std::int16_t>(std::lround(std::clamp(sample, -1.0f, 1.0f) * 32767.0f));
        file.push_back(static_cast<std::uint8_t>(value));
        file.push_back(static_cast<std::uint8_t>(value >> 8));
    }

    std::map<int, std::unique_ptr<Synthesizer>> synthesizers;
};
}  // namespace

std::vector<std::uint8_t> renderSound(const RenderPlayer& player, std::int32_t end)
{
    const TempoMap tempo(player.getTempoChanges(), SAMPLE_RATE);
    const std::int64_t frames = tempo.frameAt(end) + RELEASE_SECONDS * SAMPLE_RATE;
    std::vector<std::uint8_t> file = wavFile(frames);
    Mix mix;
    std::int64_t now = 0;
    try {
        for (const auto& [ppq, event] : player.getPlayed()) {
            const auto message = toShortMessage(event);
            if (!message || event.getOutput() < 0) continue;
            const std::int64_t at = tempo.frameAt(ppq);
            mix.appendTo(file, at - now);
            now = std::max(now, at);
            mix.play(event.getOutput(), *message);
        }
    } catch (const InputError&) {
        throw;
    } catch (const std::runtime_error& missing) {
        throw InputError(missing.what());
    }
    mix.appendTo(file, frames - now);
    return file;
}
}  // namespace Host
