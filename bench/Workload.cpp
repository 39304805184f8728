#include "bench/Workload.h"

#include <array>
#include <deque>
#include <utility>

namespace Workload
{
namespace
{
class Random
{
public:
    std::uint32_t next()
    {
        state ^= state << 13;
        state ^= state >> 17;
        state ^= state << 5;
        return state;
    }

private:
    std::uint32_t state = 0x12345678;
};

/// Notes of at most eight at a time; the oldest gives way.
class Player
{
public:
    std::vector<Event> events;
    Random random;

    bool isFull() const { return events.size() + sounding.size() >= EVENTS; }

    void play()
    {
        if (sounding.size() == MOST_SOUNDING) return release();
        int note = LOWEST + static_cast<int>(random.next() % 88);
        while (isSounding[static_cast<unsigned>(note)]) note = note == HIGHEST ? LOWEST : note + 1;
        const auto velocity = static_cast<std::uint8_t>(16 + random.next() % 112);
        events.push_back({.status = 0x90, .d1 = static_cast<std::uint8_t>(note), .d2 = velocity});
        sounding.push_back(note);
        isSounding[static_cast<unsigned>(note)] = true;
    }

    std::vector<Event> end()
    {
        while (!sounding.empty()) release();
        return std::move(events);
    }

private:
    static constexpr int MOST_SOUNDING = 8;
    static constexpr int LOWEST = 21;
    static constexpr int HIGHEST = 108;

    void release()
    {
        const int oldest = sounding.front();
        sounding.pop_front();
        isSounding[static_cast<unsigned>(oldest)] = false;
        events.push_back({.status = 0x80, .d1 = static_cast<std::uint8_t>(oldest), .d2 = 0});
    }

    std::deque<int> sounding;
    std::array<bool, 128> isSounding{};
};
}  // namespace

std::vector<Event> notes()
{
    Player player;
    while (!player.isFull()) player.play();
    return player.end();
}

std::vector<Event> mix()
{
    constexpr std::array<std::uint8_t, 4> CONTROLLERS{1, 7, 11, 74};
    Player player;
    for (int count = 0; !player.isFull(); ++count) {
        const int kind = count % 10;
        if (kind < 7) {
            player.play();
            continue;
        }
        const std::uint32_t chance = player.random.next();
        const auto low = static_cast<std::uint8_t>(chance & 0x7F);
        const auto high = static_cast<std::uint8_t>(chance >> 8 & 0x7F);
        if (kind < 9)
            player.events.push_back({.status = 0xB0, .d1 = CONTROLLERS[chance >> 16 & 3], .d2 = high});
        else
            player.events.push_back({.status = 0xE0, .d1 = low, .d2 = high});
    }
    return player.end();
}

std::vector<Backend::Layers::Layer> layers(int count)
{
    using Backend::MidiEngine::Note;
    std::vector<Backend::Layers::Layer> layers(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        auto& layer = layers[static_cast<std::size_t>(i)];
        const int lowest = 21 + 5 * i % 40;
        layer.id = i;
        layer.minNote = Note(lowest);
        layer.maxNote = Note(lowest + 40);
        layer.transpose = {.relative = true, .value = 7 * i % 25 - 12};
        layer.compress = {.numerator = 4 + i % 8, .denominator = 8};
        layer.channel = static_cast<std::int8_t>(i % 16);
        layer.useNoteStack = false;
    }
    return layers;
}

std::vector<Backend::Oscillators::Oscillator> sines(int count, Sines state)
{
    using namespace Backend::MidiEngine;
    std::vector<Backend::Oscillators::Oscillator> sines(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        auto& sine = sines[static_cast<std::size_t>(i)];
        sine.id = i;
        sine.midiMessage = MidiMessage(MessageType::controllerChange, i);
        sine.output = 0;
        sine.channel = static_cast<std::int8_t>(i % 16);
        sine.playing = state != Sines::stopped;
        if (state == Sines::detailed) sine.detail = 1;
    }
    return sines;
}
}  // namespace Workload
