#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Backend::MidiEngine
{
/// Remembers to which output each note on for the default output went, so that its note off follows it there even
/// when the default has changed in between. One queue of outputs per place (a channel's or a layer's note), oldest
/// first, kept as runs: it grows only when the default changes while a note is held. Time slice only.
class NoteOutputs
{
public:
    explicit NoteOutputs(std::size_t places) : first(places) {}

    void remember(std::size_t place, int output);

    /// The oldest remembered output of that place, which is then forgotten; -1 if there is none.
    int take(std::size_t place);

    /// Forgets every output for which `isGone(output)` holds.
    template <class IsGone>
    void forget(IsGone&& isGone)
    {
        std::erase_if(later, [&](const Later& run) { return isGone(run.output); });
        for (std::size_t place = 0; place < first.size(); ++place)
            if (first[place].count > 0 && isGone(first[place].output)) promote(place);
    }

    void clear();

private:
    struct Run {
        std::uint32_t count = 0;
        std::int8_t output = -1;
        bool more = false;  // runs in `later`
    };
    struct Later {
        std::size_t place;
        std::uint32_t count;
        std::int8_t output;
    };

    /// The oldest later run of that place takes the place of the first.
    void promote(std::size_t place);

    std::vector<Run> first;
    std::vector<Later> later;
    bool isEmpty = true;
};
}  // namespace Backend::MidiEngine
