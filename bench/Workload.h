#pragma once

#include <cstdint>
#include <vector>

#include "backend/model/Layer.h"
#include "backend/model/Oscillator.h"

/// The fixed events that every benchmark plays, and the checksums of the results.
namespace Workload
{
constexpr int EVENTS = 65536;

struct Event {
    std::uint8_t status;  ///< without channel
    std::uint8_t d1;
    std::uint8_t d2;
};

/// 65,536 note events, at most eight notes at a time; none sounds at the end.
std::vector<Event> notes();

/// The same, with two controllers and one pitch bend in every ten events.
std::vector<Event> mix();

/// Layer i of `count`: a range of 41 notes, a transposition, a velocity factor and a channel of its own.
std::vector<Backend::Layers::Layer> layers(int count);

/// `count` sines of speed 480, each for a controller of its own.
enum class Sines { stopped, thinned, detailed };  ///< stopped, with the default detail, or with the finest
std::vector<Backend::Oscillators::Oscillator> sines(int count, Sines state);

/// The checksum of one round if every event is played unchanged.
constexpr std::uint64_t SUM_OF_NOTES = 0x3559967188c30198;

/// The checksums with 1, 4 and 16 layers.
struct LayerSum {
    int layers;
    std::uint64_t sum;
};
constexpr LayerSum SUMS_OF_LAYERS[] = {{1, 0x60f1260e56a17bd1}, {4, 0x4be56cd27f07fcfb}, {16, 0xc6228bab80282fe8}};

/// The summand of an event: (status with channel << 16 | d1 << 8 | d2) x 2654435761, modulo 2^64, with 0x80 for a
/// note-off. The sum does not depend on the order.
inline std::uint64_t weigh(std::uint32_t statusWithChannel, std::uint32_t d1, std::uint32_t d2)
{
    return (std::uint64_t{statusWithChannel} << 16 | d1 << 8 | d2) * 2654435761u;
}
}  // namespace Workload
