#include <gtest/gtest.h>

#include "tests/sections/KeyStage.h"
#include "tests/stage/Allocations.h"

using namespace Backend;
using namespace Backend::ComputerInput;

TEST(KeyEvent, AModifierIsAKeyOfItsOwn)
{
    KeyStage stage;
    stage.load(noteKey("Control", "C4") + noteKey("Right Control", "D4") + noteKey("nonsense", "E4"));
    stage.down("Control"), stage.up("Control"), stage.down("Right Control");
    EXPECT_EQ(stage.played(), "C4 on, C4 off, D4 on");
    stage.down("");
    EXPECT_EQ(stage.played(), "E4 on") << "what no text names is the key of code -1";
}

TEST(KeyEvent, GoesOnWhenAFunctionChangesTheBindingsItStandsIn)
{
    KeyStage stage;
    stage.writePreset("Other", "<ComputerInput>" + noteKey("B", "E4") + "</ComputerInput>");
    stage.load(
        "<Key id='A'><Function><Down><LoadComputerInputPreset preset='Other'/></Down></Function>"
        "<Function><Down><MidiNoteOn output='0' channel='0' note='C4'/></Down></Function></Key>");
    stage.down("A"), stage.up("A"), stage.down("B");
    EXPECT_EQ(stage.played(), "C4 on, E4 on");
    EXPECT_EQ(stage.names(), "B");
    EXPECT_EQ(stage.keys().getCurrentPreset(), "Other");
}

TEST(KeyEvent, AllocatesTheCopyOfTheEntriesAndWhatTheQueuesTake)
{
    KeyStage stage;
    stage.load(noteKey("A", "C4"));
    const Key key = Key::fromXmlString("A");
    const auto count = [](auto&& act) {
        const auto before = allocationsOfThisThread();
        act();
        return allocationsOfThisThread() - before;
    };
    constexpr std::uint64_t QUEUE = 1;    // a place in a queue
    constexpr std::uint64_t ENTRIES = 3;  // their row, and the two functions in it
    EXPECT_EQ(count([&] { stage.commands().postKeyDown(key, false); }), QUEUE);
    EXPECT_EQ(count([&] { stage.commands().postKeyUp(key); }), QUEUE);
    stage.rest();
    EXPECT_EQ(count([&] { stage.keys().keyEvent(key, true, false); }), ENTRIES + QUEUE);
    EXPECT_EQ(count([&] { stage.keys().keyEvent(key, false, false); }), ENTRIES + QUEUE);
    EXPECT_EQ(count([&] { stage.keys().keyEvent(Key{.keyCode = 66}, true, false); }), 0u);
    EXPECT_EQ(stage.played(), "C4 on, C4 off, C4 on, C4 off");
}
