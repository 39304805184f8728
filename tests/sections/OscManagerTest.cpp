#include "backend/sections/oscillators/OscManager.h"

#include "tests/sections/SectionStage.h"

using namespace Backend;
using namespace Backend::Oscillators;
using Kind = SelectType::Kind;

namespace
{
constexpr OnOffToggle ON{OnOffToggle::State::on};
constexpr OnOffToggle TOGGLE{OnOffToggle::State::toggle};

/// Three sines that play controller 1, 2 and 3.
struct OscStage : SectionStage<OscManager> {
    OscStage() : SectionStage(&OrvIF::getOscManager)
    {
        for (const char* number : {"1", "2", "3"})
            load("<Oscillator detail='1' output='0' channel='0' midiMessage='Controller Change," + std::string(number) +
                     "'/>",
                 "merge='true'");
        playSlices();
    }

    OscMessageManager& messages() { return section.getMessageManager(); }
    const Oscillator& oscillator(int id) { return *section.getOscillators().findElement(id); }

    /// Those that play, by their numbers, and the speed of each.
    std::string state()
    {
        rest();
        const auto& all = section.getOscillators().getOscillators();
        return joined(
                   all, [](const Oscillator& each) { return each.playing ? std::to_string(each.id) : ""; }, "") +
               ": " + joined(all, [](const Oscillator& each) { return std::to_string(each.speed); });
    }
};
}  // namespace

TEST(OscOperations, ActOnTheOscillatorsTheyName)
{
    OscStage stage;
    stage.messages().postChangePlaying({Kind::specific, 1}, ON);
    EXPECT_EQ(stage.state(), "1: 480 480 480");
    stage.messages().postSetSelected({0, 1, 7});
    stage.messages().postChangePlaying({Kind::specific, 2}, TOGGLE);
    stage.messages().postChangePlaying({Kind::specific, 0}, TOGGLE);
    EXPECT_EQ(stage.state(), "02: 480 480 480") << "where the one named is selected, all that are follow";
    stage.messages().postChangePlaying({Kind::selected}, ON);
    stage.messages().postChangePlaying({Kind::up}, TOGGLE);
    stage.messages().postChangePlaying({Kind::specific, 3}, TOGGLE);
    stage.messages().postChangeSpeed(1, {false, 60});
    stage.messages().postSetSpeedFromMidi({Kind::specific, 2}, 127);
    EXPECT_EQ(stage.state(), "012: 60 60 40");
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
                                                   {PPQ, 480, {false, 481}, 481}}) {
        Oscillator changed = stage.oscillator(1);
        changed.speed = from;
        changed.speedMode.kind = mode;
        stage.messages().postMergeOscillators({changed}, false);
        stage.messages().postChangeSpeed(1, value);
        stage.rest();
        EXPECT_EQ(stage.oscillator(1).speed, speed) << from << " " << value.relative << " " << value.value;
    }
    stage.messages().postSetSpeedMode(0, {PPQ});
    for (const auto& [knob, speeds] :
         {std::pair{-1, ": 30720 30720 30720"}, {127, ": 40 40 40"}, {64, ": 1079 1079 480"}, {128, ": 40 40 40"}}) {
        stage.messages().postSetSpeedFromMidi({Kind::all}, knob);
        EXPECT_EQ(stage.state(), speeds);
    }
}

TEST(OscOperations, ArePlayedAndShown)
{
    OscStage stage;
    stage.played();
    stage.openWindow();
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
    stage.section.dataSelect({Kind::up});
    stage.playSlices(4);
    stage.messages().postChangePlaying({Kind::all}, {OnOffToggle::State::off});
    EXPECT_EQ(stage.played(),
              "Controller Change 3 64, Controller Change 3 0, Controller Change 3 127, Controller Change 3 0, "
              "Controller Change 3 64")
        << "the stop value before the first value, and at the stop";

    std::string values;  // they come from another thread than the changes
    const std::string changes = stage.received([&](Message& message) -> std::string {
        if (const auto* list = message.payload.get<OscList>()) return "list of " + std::to_string(list->size());
        if (message.number == GuiMessage::OSC_VALUE) values += TestWindow::parameters(message) + ", ";
        return message.number == GuiMessage::OSC_VALUE || message.number == GuiMessage::MIDI_OUTPUT_EVENT
                   ? ""
                   : TestWindow::words(message);
    });
    EXPECT_EQ(changes, "list of 3, 35471 2 1, 35472 0 640, 35470 0 1, 35471 2 0");
    EXPECT_EQ(values, "2 64, 2 0, 2 127, 2 0, 2 64, ");

    stage.messages().postChangePlaying({Kind::all}, ON);
    stage.loadFile("a.prg",
                   "<P><Program><Oscillators><Oscillator speed='7' playing='true'/></Oscillators></Program></P>");
    EXPECT_EQ(stage.state(), ": 7") << "a program's do not play";
    stage.loadFile("b.prg", "<P><Program/></P>");
    EXPECT_EQ(stage.state(), ": ") << "and one without the section has none";
    OscList list;
    list.add(third);
    stage.messages().postSetOscillators(list, false);
    EXPECT_EQ(stage.state(), ": 4");
}
