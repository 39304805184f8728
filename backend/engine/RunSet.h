#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

namespace Backend::MidiEngine
{
/// A set of the runs of a `PressMemory`, by their index. Of a fixed size, so that nothing is allocated. Time slice
/// only.
class RunSet
{
public:
    using Index = std::uint16_t;
    static constexpr std::size_t CAPACITY = 16384;

    void add(Index run) { words[run / BITS] |= bit(run); }
    void remove(Index run) { words[run / BITS] &= ~bit(run); }
    bool contains(Index run) const { return (words[run / BITS] & bit(run)) != 0; }
    void clear() { words.fill(0); }

    /// Whether the sets have one of the first `runs` runs in common.
    bool meets(const RunSet& other, std::size_t runs) const
    {
        for (std::size_t i = 0; i * BITS < runs; ++i)
            if ((words[i] & other.words[i]) != 0) return true;
        return false;
    }

    /// Calls `visit(run)` for each of the first `runs` runs that both sets have, in ascending order.
    template <class Visit>
    void forEachCommon(const RunSet& other, std::size_t runs, Visit&& visit) const
    {
        for (std::size_t i = 0; i * BITS < runs; ++i)
            for (std::uint64_t common = words[i] & other.words[i]; common != 0; common &= common - 1)
                visit(static_cast<Index>(i * BITS + static_cast<std::size_t>(std::countr_zero(common))));
    }

private:
    static constexpr std::size_t BITS = 64;
    static std::uint64_t bit(Index run) { return std::uint64_t{1} << run % BITS; }

    std::array<std::uint64_t, CAPACITY / BITS> words{};
};
}  // namespace Backend::MidiEngine
