#include "bench/Workload.h"

#include <array>
#include <deque>

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
}  // namespace

std::vector<Event> notes()
{
    constexpr int MOST_SOUNDING = 8;
    constexpr int LOWEST = 21;
    constexpr int HIGHEST = 108;
    Random random;
    std::vector<Event> events;
    std::deque<int> sounding;
    std::array<bool, 128> isSounding{};
    const auto release = [&] {
        const int oldest = sounding.front();
        sounding.pop_front();
        isSounding[static_cast<unsigned>(oldest)] = false;
        events.push_back({.status = 0x80, .d1 = static_cast<std::uint8_t>(oldest), .d2 = 0});
    };
    while (events.size() + sounding.size() < EVENTS) {
        if (sounding.size() == MOST_SOUNDING) {
            release();
            continue;
        }
        int note = LOWEST + static_cast<int>(random.next() % 88);
        while (isSounding[static_cast<unsigned>(note)]) note = note == HIGHEST ? LOWEST : note + 1;
        const auto velocity = static_cast<std::uint8_t>(16 + random.next() % 112);
        events.push_back({.status = 0x90, .d1 = static_cast<std::uint8_t>(note), .d2 = velocity});
        sounding.push_back(note);
        isSounding[static_cast<unsigned>(note)] = true;
    }
    while (!sounding.empty()) release();
    return events;
}
}  // namespace Workload
