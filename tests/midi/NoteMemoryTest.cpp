#include "backend/engine/NoteMemory.h"

#include <gtest/gtest.h>

#include <deque>
#include <map>
#include <random>

using Backend::MidiEngine::NoteMemory;

TEST(NoteMemory, GivesBackTheOldestFirstWhateverChangedInBetween)
{
    // Against the plainest model: a queue per place.
    std::mt19937 random(7);
    const auto below = [&](unsigned limit) { return static_cast<int>(random() % limit); };
    NoteMemory outputs(4);
    std::map<int, std::deque<int>> model;
    for (int step = 0; step < 20000; ++step) {
        const int place = below(4);
        auto& queue = model[place];
        switch (below(20)) {
            case 0: {
                const int gone = below(5);
                outputs.forget([&](int output) { return output == gone; });
                for (auto& [key, remembered] : model) std::erase(remembered, gone);
                break;
            }
            case 1:
                if (below(20) == 0) {
                    outputs.clear();
                    model.clear();
                }
                break;
            default:
                if (below(2) == 0) {
                    const int output = below(5);
                    outputs.remember(static_cast<std::size_t>(place), output);
                    queue.push_back(output);
                } else {
                    const int expected = queue.empty() ? -1 : queue.front();
                    if (!queue.empty()) queue.pop_front();
                    ASSERT_EQ(outputs.take(static_cast<std::size_t>(place)), expected) << "step " << step;
                }
        }
    }
}
