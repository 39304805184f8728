#include "backend/engine/PressMemory.h"

#include <map>
#include <random>

#include "backend/engine/DefaultOutputMemory.h"
#include "tests/stage/Stage.h"

using namespace Backend::MidiEngine;

namespace
{
/// The rule, in the plainest form: the runs of a key, oldest first.
struct Runs {
    struct Run {
        int outcome;
        int presses;
    };
    std::vector<Run> runs;

    void press(int outcome)
    {
        int presses = 1;
        if (const auto same = std::ranges::find(runs, outcome, &Run::outcome); same != runs.end()) {
            presses += same->presses;
            runs.erase(same);
        }
        if (!runs.empty() && runs.back().presses == 0) runs.pop_back();
        runs.push_back({outcome, presses});
    }

    std::vector<int> release(int unknown)
    {
        if (runs.empty()) return {unknown};
        Run latest = runs.back();
        runs.pop_back();
        std::vector<int> noteOffs{latest.outcome};
        for (const Run& run : runs) noteOffs.insert(noteOffs.end(), static_cast<std::size_t>(run.presses), run.outcome);
        latest.presses = std::max(0, latest.presses - 1);
        runs = {latest};
        return noteOffs;
    }
};
}  // namespace

TEST(PressMemory, AnswersWithTheLatestOutcomeAndEndsTheOthersWhole)
{
    constexpr unsigned NOTES = 3;
    constexpr unsigned ROUTES = 3;
    std::mt19937 random(7);
    const auto below = [&](unsigned limit) { return static_cast<int>(random() % limit); };
    PressMemory presses;
    DefaultOutputMemory one(NOTES);
    DefaultOutputMemory other(NOTES);
    other.setOwner(1);
    std::map<std::tuple<bool, int, int>, Runs> model;
    for (int step = 0; step < 100000; ++step) {
        const int note = below(NOTES);
        const int input = below(ROUTES) - 1;
        const int output = below(4);
        const bool isOne = below(2) == 0;
        DefaultOutputMemory& memory = isOne ? one : other;
        Runs& runs = model[{isOne, input, note}];
        const DefaultRoute route(noteOn(60).input(input), output);
        if (below(1000) == 0) {
            const auto isGone = [&](int each) { return each == output; };
            presses.forgetOutputs(isGone);
            one.forget(isGone);
            other.forget(isGone);
            for (auto& [key, known] : model) std::erase_if(known.runs, [&](auto run) { return isGone(run.outcome); });
        } else if (below(2000) == 0) {
            presses.clear();
            one.clear();
            other.clear();
            model.clear();
        } else if (below(2) == 0) {
            ASSERT_TRUE(memory.press(presses, static_cast<std::size_t>(note), route));
            runs.press(output);
        } else {
            std::vector<int> noteOffs;
            memory.release(presses, static_cast<std::size_t>(note), route, [&](int each) { noteOffs.push_back(each); });
            ASSERT_EQ(noteOffs, runs.release(output)) << "step " << step;
        }
    }
}

TEST(PressMemory, RefusesAPressOnlyWhenAllItsRunsAreOpen)
{
    PressMemory presses(3);
    const auto ended = [&](PressMemory::Key key) {
        std::string text;
        const auto add = [&](const PressMemory::Run& run, PressMemory::Index) {
            text += std::to_string(run.outcome.value) + "/" + std::to_string(run.velocity) + " ";
        };
        return presses.release(key, add) ? text : "unknown";
    };
    EXPECT_TRUE(presses.press(1, {{10, 0}, 100}));
    EXPECT_TRUE(presses.press(1, {{10, 1}, 20}));
    EXPECT_TRUE(presses.press(1, {{10, 0}, 90})) << "joins its run, which is the latest again";
    EXPECT_TRUE(presses.press(2, {{20, 0}, 50}));
    EXPECT_FALSE(presses.press(3, {{30, 0}, 50}));
    EXPECT_EQ(ended(3), "unknown");
    EXPECT_EQ(ended(1), "10/90 10/20 ");
    EXPECT_TRUE(presses.press(3, {{30, 0}, 50})) << "where the other outcome was";
    EXPECT_FALSE(presses.press(4, {{40, 0}, 50}));
    EXPECT_EQ(ended(1) + ended(1), "10/90 10/90 ") << "also when it is used up";
    EXPECT_TRUE(presses.press(4, {{40, 0}, 50})) << "in place of the one that is used up";
    EXPECT_EQ(ended(1) + ended(2) + ended(3) + ended(4), "unknown20/50 30/50 40/50 ");
}
