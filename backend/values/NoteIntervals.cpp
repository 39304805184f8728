#include "backend/values/NoteIntervals.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace
{
struct NoteInterval {
    std::int32_t ppq;
    std::string_view name;
};

constexpr std::int32_t QUARTER_NOTE = 480;

// Sorted by length; the first has index 1.
constexpr auto INTERVALS = std::to_array<NoteInterval>(
    {{20, "1/64 Triplet"}, {40, "1/32 Triplet"}, {60, "1/32"},           {80, "1/16 Triplet"}, {120, "1/16"},
     {160, "1/8 Triplet"}, {180, "1/16 Dotted"}, {240, "1/8"},           {320, "1/4 Triplet"}, {360, "1/8 Dotted"},
     {480, "1/4"},         {640, "1/2 Triplet"}, {720, "1/4 Dotted"},    {960, "1/2"},         {1280, "Whole Triplet"},
     {1440, "1/2 Dotted"}, {1920, "Whole"},      {2880, "Whole Dotted"}, {3840, "2 Whole"},    {7680, "4 Whole"},
     {15360, "8 Whole"},   {30720, "16 Whole"}});
static_assert(std::ranges::is_sorted(INTERVALS, {}, &NoteInterval::ppq));
}  // namespace

std::string noteIntervalName(std::int32_t ppq)
{
    const auto index = noteIntervalIndex(ppq);
    return index == 0 ? std::to_string(ppq) : std::string(INTERVALS[static_cast<std::size_t>(index - 1)].name);
}

std::int32_t noteIntervalIndex(std::int32_t ppq)
{
    const auto index = nearestNoteIntervalIndex(ppq);
    return noteIntervalFromIndex(index) == ppq ? index : 0;
}

std::int32_t nearestNoteIntervalIndex(std::int32_t ppq)
{
    const auto row = std::ranges::lower_bound(INTERVALS, ppq, {}, &NoteInterval::ppq);
    return static_cast<std::int32_t>(std::min<std::ptrdiff_t>(row - INTERVALS.begin() + 1, std::ssize(INTERVALS)));
}

std::int32_t noteIntervalFromIndex(std::int32_t index)
{
    if (index < 1 || index > std::ssize(INTERVALS)) return QUARTER_NOTE;
    return INTERVALS[static_cast<std::size_t>(index - 1)].ppq;
}
