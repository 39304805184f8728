#include "backend/sections/oscillators/OscManager.h"

#include <gtest/gtest.h>

#include "backend/messages/GuiMessages.h"
#include "backend/xml/XmlDocument.h"
#include "tests/stage/Stage.h"
#include "tests/stage/TemporaryFolder.h"

using namespace Backend;
using namespace Backend::Oscillators;
using Kind = SelectType::Kind;

namespace
{
constexpr OnOffToggle ON{OnOffToggle::State::on};
constexpr OnOffToggle TOGGLE{OnOffToggle::State::toggle};

/// The backend at rest: its oscillators may be called from here. Three sines that play controller 1, 2 and 3.
struct OscStage : Stage {
    OscStage()
    {
        OscList list;
        for (int i = 1; i <= 3; ++i)
            list.add({.detail = 1,
                      .midiMessage = MidiEngine::MidiMessage(MidiEngine::MessageType::controllerChange, i),
                      .output = 0,
                      .channel = 0});
        messages().postSetOscillators(list, false);
        rest();
        playSlices();
    }

    OscManager& oscillators() { return orv->getOscManager(); }
    OscMessageManager& messages() { return orv->getOscMessageManager(); }
    const Oscillator& oscillator(int id) { return *oscillators().getOscillators().findElement(id); }

    std::string playing()
    {
        rest();
        std::string ids;
        for (const Oscillator& each : oscillators().getOscillators().getOscillators())
            if (each.playing) ids += std::to_string(each.id);
        return ids;
    }
    int speed(TimeIntervalType::Kind mode, int from, const RelativeFixedValue& value)
    {
        Oscillator changed = oscillator(1);
        changed.speed = from;
        changed.speedMode.kind = mode;
        messages().postMergeOscillators({changed}, false);
        messages().postChangeSpeed(1, value);
        rest();
        return oscillator(1).speed;
    }
};
}  // namespace

TEST(OscOperations, ActOnTheOscillatorsTheyName)
{
    OscStage stage;
    stage.messages().postChangePlaying({Kind::specific, 1}, ON);
    EXPECT_EQ(stage.playing(), "1");
    stage.messages().postSetSelected({0, 1, 7});
    stage.messages().postChangePlaying({Kind::specific, 2}, TOGGLE);
    EXPECT_EQ(stage.playing(), "12");
    stage.messages().postChangePlaying({Kind::specific, 0}, TOGGLE);
    EXPECT_EQ(stage.playing(), "02") << "where the one named is selected, all that are follow";
    stage.messages().postChangePlaying({Kind::selected}, ON);
    stage.messages().postChangePlaying({Kind::up}, TOGGLE);
    stage.messages().postChangePlaying({Kind::specific, 3}, TOGGLE);
    EXPECT_EQ(stage.playing(), "012");
    stage.messages().postChangeSpeed(1, {false, 60});
    stage.messages().postSetSpeedFromMidi({Kind::specific, 2}, 127);
    stage.rest();
    EXPECT_EQ(stage.oscillator(0).speed, 60);
    EXPECT_EQ(stage.oscillator(1).speed, 60);
    EXPECT_EQ(stage.oscillator(2).speed, 40);
}

TEST(OscOperations, ChangeTheSpeedByNoteIntervalsOrByAKnob)
{
    OscStage stage;
    struct Row {
        TimeIntervalType::Kind mode;
        int from;
        RelativeFixedValue value;
        int speed;
    };
    constexpr auto NOTE = TimeIntervalType::Kind::noteInterval;
    constexpr auto PPQ = TimeIntervalType::Kind::ppq;
    // The knob's speeds: 40 x 768 ^ ((127 - knob) / 127), and 480 is the knob's 79.
    for (const auto& [mode, from, value, speed] : {Row{NOTE, 480, {true, 1}, 640},
                                                   {NOTE, 480, {true, 100}, 640},
                                                   {NOTE, 480, {true, -1}, 360},
                                                   {NOTE, 481, {true, 0}, 640},
                                                   {NOTE, 15360, {true, 1}, 15360},
                                                   {NOTE, 7680, {true, 1}, 15360},
                                                   {NOTE, 30720, {true, -1}, 15360},
                                                   {NOTE, 60, {true, -1}, 40},
                                                   {NOTE, 40, {true, -1}, 40},
                                                   {NOTE, 480, {false, 1}, 40},
                                                   {NOTE, 480, {false, 2147483647}, 30720},
                                                   {PPQ, 480, {true, 0}, 492},
                                                   {PPQ, 480, {true, 1}, 467},
                                                   {PPQ, 480, {true, -79}, 30720},
                                                   {PPQ, 480, {true, 2147483647}, 40},
                                                   {PPQ, 0, {true, -2147483647 - 1}, 30720},
                                                   {PPQ, -5, {true, 1}, 40},
                                                   {PPQ, 20, {true, -20}, 57},
                                                   {PPQ, 480, {false, 481}, 481}})
        EXPECT_EQ(stage.speed(mode, from, value), speed) << from << " " << value.relative << " " << value.value;
}

TEST(OscOperations, TakeASpeedFromAKnob)
{
    OscStage stage;
    stage.messages().postSetSpeedMode(0, {TimeIntervalType::Kind::ppq});
    const auto turn = [&](int value) {
        stage.messages().postSetSpeedFromMidi({Kind::all}, value);
        stage.rest();
        return std::to_string(stage.oscillator(0).speed) + " " + std::to_string(stage.oscillator(1).speed);
    };
    EXPECT_EQ(turn(0), "30720 30720");
    EXPECT_EQ(turn(127), "40 40");
    EXPECT_EQ(turn(64), "1079 480");
    EXPECT_EQ(turn(-1), "30720 30720");
    EXPECT_EQ(turn(128), "40 40");
}

TEST(OscOperations, MoveTheSelection)
{
    OscStage stage;
    const auto select = [&](Kind kind, int value = 0) {
        stage.oscillators().dataSelect({kind, value});
        std::string ids;
        for (const Oscillator& each : stage.oscillators().getOscillators().getOscillators())
            if (each.selected) ids += std::to_string(each.id);
        return ids;
    };
    EXPECT_EQ(select(Kind::down), "");
    EXPECT_EQ(select(Kind::up), "0");
    EXPECT_EQ(select(Kind::up), "1");
    EXPECT_EQ(select(Kind::specific, 3), "1");
    EXPECT_EQ(select(Kind::specific, 2), "2");
    EXPECT_EQ(select(Kind::up), "2");
}

TEST(OscOperations, ArePlayedAndShown)
{
    OscStage stage;
    stage.played();
    const auto window = std::make_shared<MessageQueue>(64);
    stage.orv->setGuiWindowHandle(WindowHandle(window));
    Oscillator third = stage.oscillator(2);
    third.stopValue = 64;
    third.type.kind = OscillatorType::Kind::pulse;
    third.speed = 4;
    stage.messages().postMergeOscillators({third}, true);
    stage.rest();
    stage.playSlices();
    stage.messages().postChangePlaying({Kind::specific, 2}, ON);
    stage.messages().postChangePlaying({Kind::specific, 2}, ON);
    stage.messages().postChangeSpeed(0, {true, 1});
    stage.rest();
    stage.playSlices(4);
    stage.messages().postChangePlaying({Kind::all}, {OnOffToggle::State::off});
    EXPECT_EQ(stage.played(),
              "Controller Change 3 64, Controller Change 3 0, Controller Change 3 127, Controller Change 3 0, "
              "Controller Change 3 64")
        << "the stop value before the first value, and at the stop";

    std::string changes, values;  // from two threads
    while (window->handleNext([&](Message& message) {
        if (message.number == GuiMessage::OSCILLATORS)
            changes += "list of " + std::to_string(message.payload.get<OscList>()->size()) + ", ";
        else if (message.number == GuiMessage::OSC_VALUE)
            values += std::to_string(message.wparam) + ":" + std::to_string(message.lparam) + " ";
        else if (message.number != GuiMessage::MIDI_OUTPUT_EVENT)
            changes += std::to_string(message.number) + " " + std::to_string(message.wparam) + " " +
                       std::to_string(message.lparam) + ", ";
    })) {}
    EXPECT_EQ(changes, "list of 3, 35471 2 1, 35472 0 640, 35471 2 0, ");
    EXPECT_EQ(values, "2:64 2:0 2:127 2:0 2:64 ");
}

TEST(Programs, BringTheirOscillatorsAndNoneWhereTheyHaveNone)
{
    OscStage stage;
    TemporaryFolder folder;
    folder.write("one.prg", "<P><Program><Oscillators><Oscillator speed='7'/></Oscillators></Program></P>");
    folder.write("none.prg", "<P><Program/></P>");
    const auto load = [&](const char* name) {
        stage.commands().postLoadProgram((folder / name).string());
        stage.rest();
        return stage.oscillators().getOscillators().size();
    };
    stage.messages().postChangePlaying({Kind::all}, ON);
    EXPECT_EQ(load("one.prg"), 1u);
    EXPECT_EQ(stage.oscillator(0).speed, 7);
    EXPECT_EQ(stage.playing(), "");
    EXPECT_EQ(load("none.prg"), 0u);
}
