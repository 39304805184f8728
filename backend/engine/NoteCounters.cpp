#include "backend/engine/NoteCounters.h"

#include <algorithm>

namespace Backend::MidiEngine
{
void NoteCounters::clearOutput(int output)
{
    const auto at = static_cast<unsigned>(output);
    if (!used[at]) return;
    const auto first = counters.begin() + output * CHANNELS * NOTES;
    std::fill(first, first + CHANNELS * NOTES, Counter{});
    used[at] = false;
}
}  // namespace Backend::MidiEngine
