#include <gtest/gtest.h>

#include <thread>

#include "tests/engine/EngineStage.h"
#include "tests/stage/Allocations.h"

using namespace Backend;
using namespace Backend::MidiEngine;

namespace
{
/// An engine whose layers and oscillators are replaced under held notes, by its command thread.
struct KeptNotes : testing::Test {
    EngineStage stage;
    std::int32_t ppq = 1000;
    std::uint64_t heapCalls = 0;  // inside slices

    void SetUp() override
    {
        stage.player.events.reserve(100000);
        stage.engine.initialize(0, true);
        playSlice();
        post([](auto& commands) { commands.postSetKeepNotes(true); });
    }

    void playSlice()
    {
        const auto before = allocationsOfThisThread() + releasesOfThisThread();
        stage.engine.playTimeSlice(ppq, ppq + 1);
        ++ppq;
        heapCalls += allocationsOfThisThread() + releasesOfThisThread() - before;
    }
    void play(const TestEvent& event)
    {
        stage.add(event);
        playSlice();
        playSlice();
    }
    /// Plays slices until the command was executed.
    void post(const auto& command)
    {
        const auto& worker = stage.engine.getMessageManager().getWorker();
        command(stage.engine.getMessageManager());
        while (!worker.rest().resting || stage.engine.isResetWaiting()) playSlice();
    }
    /// A layer for each velocity, which is added.
    void setLayers(const std::vector<int>& velocities)
    {
        std::vector<Layers::Layer> layers(velocities.size());
        for (std::size_t i = 0; i < layers.size(); ++i) layers[i].velocity.value = velocities[i];
        post([&](auto& commands) { commands.postSetLayerList(layers); });
    }
    std::string played()
    {
        const std::string text = joined(stage.player.events, [](const auto& event) {
            return (event.isNoteOn() ? "+" : "-") + std::to_string(event.getD1()) + "/" + std::to_string(event.getD2());
        });
        stage.player.events.clear();
        return text;
    }
};
}  // namespace

TEST_F(KeptNotes, AreCutByNoneOfAThousandEditsAndTheSlicesLeaveTheHeapAlone)
{
    setLayers({0, -10});
    for (const int note : {60, 64, 67}) play(noteOn(note, 50));
    EXPECT_EQ(played(), "+60/50 +60/40 +64/50 +64/40 +67/50 +67/40");
    for (int edit = 1; edit <= 1000; ++edit) {
        setLayers({edit % 40, -10});
        if (edit % 100 == 0) {
            play(noteOn(72, 50));
            play(noteOff(72, 50));
        }
    }
    EXPECT_EQ(joined(stage.player.events, [](const auto& event) { return event.getD1() == 72 ? "" : "cut"; }), "");
    played();
    for (const int note : {60, 64, 67}) play(noteOff(note, 50));
    EXPECT_EQ(played(), "-60/40 -64/40 -67/40") << "each when both layers have ended it";
    EXPECT_EQ(heapCalls, 0u);
}

TEST_F(KeptNotes, OfMoreThan64ChangedLayersTheOldestEnd)
{
    std::string cut;
    for (int note = 0; note < 67; ++note) {
        setLayers({note});
        cut += played() + ";";
        for (const int velocity : {20, 30}) play(noteOn(note, velocity));
        played();
    }
    EXPECT_EQ(cut, std::string(66, ';').replace(65, 0, "-0/30") + "-1/31;");

    std::string ended;
    for (int note = 0; note < 67; ++note) {
        for (int press = 0; press < 2; ++press) play(noteOff(note, 10));
        ended += played() + ";";
    }
    EXPECT_TRUE(ended.starts_with(";;-2/12;-3/13;")) << ended;
    EXPECT_TRUE(ended.ends_with(";-66/76;")) << ended;
    EXPECT_EQ(heapCalls, 0u);
}
