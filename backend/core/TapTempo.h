#pragma once

#include <cstdint>
#include <optional>

namespace Backend
{
/// The tempo that is tapped: from the time of the last taps, at most four intervals. The backend thread.
class TapTempo
{
public:
    /// A tap at this time. The tempo in beats per minute; none for the first tap, for one that comes later than a beat
    /// of the lowest tempo lasts, or sooner than one of the highest: these begin anew.
    std::optional<int> tap(std::uint32_t milliseconds);

private:
    static constexpr int MOST_INTERVALS = 4;

    std::uint32_t intervals[MOST_INTERVALS] = {};
    int count = 0;  // of intervals
    std::optional<std::uint32_t> last;
};
}  // namespace Backend
