#include "backend/midi/NoteOutputs.h"

#include <algorithm>

namespace Backend::MidiEngine
{
void NoteOutputs::remember(std::size_t place, int output)
{
    Run& run = first[place];
    const auto port = static_cast<std::int8_t>(output);
    isEmpty = false;
    if (run.count == 0) {
        run = {.count = 1, .output = port};
    } else if (!run.more && run.output == port) {
        ++run.count;
    } else {
        const auto newest = std::find_if(later.rbegin(), later.rend(),
                                         [&](const Later& candidate) { return candidate.place == place; });
        if (newest != later.rend() && newest->output == port)
            ++newest->count;
        else
            later.push_back({.place = place, .count = 1, .output = port});
        run.more = true;
    }
}

int NoteOutputs::take(std::size_t place)
{
    Run& run = first[place];
    if (run.count == 0) return -1;
    const int output = run.output;
    if (--run.count == 0 && run.more) promote(place);
    return output;
}

void NoteOutputs::promote(std::size_t place)
{
    const auto oldest = std::ranges::find(later, place, &Later::place);
    if (oldest == later.end()) {
        first[place] = {};
        return;
    }
    first[place] = {.count = oldest->count, .output = oldest->output};
    const auto next = later.erase(oldest);
    first[place].more = std::ranges::find(next, later.end(), place, &Later::place) != later.end();
}

void NoteOutputs::clear()
{
    if (isEmpty) return;
    std::ranges::fill(first, Run{});
    later.clear();
    isEmpty = true;
}
}  // namespace Backend::MidiEngine
