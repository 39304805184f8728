#pragma once

#include <cstdint>
#include <vector>

namespace Backend::Layers
{
/// The held notes of a mono layer, before its transposition, oldest first. A note may be contained more than once.
class HeldNoteStack
{
public:
    struct HeldNote {
        int note = -1;  ///< -1 for none
        std::uint8_t velocity = 0;
    };

    HeldNoteStack() { notes.reserve(128); }

    void push(int note, std::uint8_t velocity) { notes.push_back({.note = note, .velocity = velocity}); }

    /// The newest note, or none.
    HeldNote top() const { return notes.empty() ? HeldNote{} : notes.back(); }

    /// Removes the newest entry of that note. True if it was the newest of all, or if the stack was empty.
    bool remove(int note)
    {
        if (notes.empty()) return true;
        for (auto entry = notes.end(); entry != notes.begin();) {
            if ((--entry)->note != note) continue;
            const bool wasLast = entry + 1 == notes.end();
            notes.erase(entry);
            return wasLast;
        }
        return false;
    }

    void clear() { notes.clear(); }

private:
    std::vector<HeldNote> notes;
};
}  // namespace Backend::Layers
