#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Backend::MidiEngine
{
/// Remembers for each open note on what its note off needs to follow it: the output it got while the default output
/// may change, the note it became while a zone's transposition may change. One queue of values per place (a channel's
/// or a layer's or a zone's note), oldest first, kept as runs: it grows only when the value changes while a note is
/// held. Time slice only.
class NoteMemory
{
public:
    static constexpr int NONE = -1;

    /// Values are 0 to 255.
    explicit NoteMemory(std::size_t places) : first(places) {}

    /// A further place; its number.
    std::size_t addPlace()
    {
        first.emplace_back();
        return first.size() - 1;
    }

    void remember(std::size_t place, int value)
    {
        Run& run = first[place];
        isEmpty = false;
        if (run.count == 0)
            run = {.count = 1, .value = static_cast<std::int16_t>(value)};
        else if (!run.more && run.value == value)
            ++run.count;
        else
            rememberLater(place, value);
    }

    /// The oldest remembered value of that place, which is then forgotten, or `NONE`.
    int take(std::size_t place)
    {
        Run& run = first[place];
        if (run.count == 0) return NONE;
        const int value = run.value;
        if (--run.count == 0 && run.more) promote(place);
        return value;
    }

    /// Forgets every value for which `isGone(value)` holds.
    template <class IsGone>
    void forget(IsGone&& isGone)
    {
        if (isEmpty) return;
        std::erase_if(later, [&](const Later& run) { return isGone(run.value); });
        for (std::size_t place = 0; place < first.size(); ++place)
            if (first[place].count > 0 && isGone(first[place].value)) promote(place);
    }

    void clear();

private:
    struct Run {
        std::uint32_t count = 0;
        std::int16_t value = NONE;
        bool more = false;  // runs in `later`
    };
    struct Later {
        std::size_t place;
        std::uint32_t count;
        std::int16_t value;
    };

    void rememberLater(std::size_t place, int value);
    /// The oldest later run of that place takes the place of the first.
    void promote(std::size_t place);

    std::vector<Run> first;
    std::vector<Later> later;
    bool isEmpty = true;
};
}  // namespace Backend::MidiEngine
