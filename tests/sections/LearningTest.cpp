#include "backend/model/MidiEvent.h"
#include "tests/sections/JoystickStage.h"
#include "tests/sections/KeyStage.h"

using namespace Backend;
using namespace Backend::Joystick;

namespace
{
/// With a window. A plays C4 and, with Shift, C5; a button plays D4, and an axis controller 7.
struct LearnStage : JoystickStage {
    LearnStage()
    {
        openWindow();
        loadFile("learn.prg", "<ProgramFile><Program><ComputerInput>" + noteKey("A", "C4") + noteKey("Shift A", "C5") +
                                  "</ComputerInput><Joystick>" + controllerAxis(0, "X", 7) + noteButton(0, 4, "D4") +
                                  "</Joystick><Layers><Layer/></Layers></Program></ProgramFile>");
        section.getEngine().take({JoystickReading{}}, 0);  // plugged in, with its axes at the centre
        result();
    }

    void learn(const LearnKinds& kinds) { commands().postLearn(kinds, ++number); }

    /// "+A" presses, "=A" repeats and "-A" releases a key, or the button "4"; "X7" moves the axis.
    void act(const std::string& what)
    {
        const std::string part = what.substr(1);
        const Key key = part == "Shift" ? Key{.keyCode = Key::LEFT_SHIFT} : Key::fromXmlString(part);
        const bool isUp = what[0] == '-', isRepeat = what[0] == '=';
        if (what == "?keys") return learn({.key = true});
        if (what == "?joystick") return learn({.joystickButton = true, .joystickAxis = true});
        if (what[0] == 'X') return axis(0, "X", std::stoi(part));
        if (part == "4") return isUp ? up(0, 4) : down(0, 4, isRepeat);
        isUp ? commands().postKeyUp(key) : commands().postKeyDown(key, isRepeat);
    }

    /// What was played and, after "> ", what was learned.
    std::string result()
    {
        return played() + received([&](Message& message) -> std::string {
                   if (message.number != GuiMessage::LEARNED) return "";
                   const auto& [request, input] = *message.payload.get<Learned>();
                   EXPECT_EQ(request, number);
                   if (const auto* key = std::get_if<Key>(&input)) return "> " + key->toXmlString();
                   if (const auto* id = std::get_if<JoyButtonElementId>(&input))
                       return "> " + std::to_string(id->button);
                   if (const auto* id = std::get_if<JoyAxisElementId>(&input))
                       return "> " + std::string(getAxisName(id->axis));
                   const auto& event = std::get<MidiEngine::OrvMidiMessage>(input);
                   return ">" + MidiInput::MidiEvent::of(event).toXmlAttributes() + " " + std::to_string(event.getD2());
               });
    }

    std::uint32_t number = 0;
};
}  // namespace

TEST(Learning, SwallowsThePressThatIsLearnedAndPlaysWhatWasHeld)
{
    LearnStage stage;
    int step = 0;
    // clang-format off
    for (const auto& [what, result] : std::initializer_list<std::pair<const char*, const char*>>{
             {"+A", "C4 on"}, {"?keys", ""}, {"-A", "C4 off"}, {"+Shift", ""}, {"+Shift A", "> Shift A"},
             {"=Shift A", ""}, {"-Shift A", ""}, {"-Shift", ""}, {"+Shift A", "C5 on"}, {"-A", "C4 off"},
             {"?keys", ""}, {"+Shift", ""}, {"-Shift", "> Left Shift"},
             {"+4", "D4 on"}, {"?joystick", ""}, {"-4", "D4 off"}, {"+A", "C4 on"}, {"+4", "> 4"}, {"=4", ""},
             {"-4", ""}, {"+4", "D4 on"},
             // A quarter of the way is learned; where another request takes its place, the axis plays its position
             {"?joystick", ""}, {"X49151", ""}, {"?keys", "Controller Change 7 95"}, {"?joystick", ""},
             {"X32768", ""}, {"X32767", "> X"}, {"X0", "Controller Change 7 0"}}) {
        // clang-format on
        stage.act(what);
        EXPECT_EQ(stage.result(), result) << "step " << step++ << ", " << what;
    }
}

/// By the way through the backend, and by that of a host that plays live.
TEST(Learning, OfMidiIsTheSameOnBothWays)
{
    for (const bool isLive : {false, true}) {
        LearnStage stage;
        const auto expect = [&](const TestEvent& event, const std::string& result) {
            if (!isLive || !stage.orv->playMidiInputEvent(event)) stage.commands().postProcessMidiInputEvent(event);
            EXPECT_EQ(stage.result(), result) << isLive;
        };
        const auto c = noteOn(60).channel(3).input(1), d = noteOn(62, 80).channel(3).input(1);
        expect(c, "C4 on");
        expect(controller(64, 127).input(1), "Controller Change 64 127");
        stage.learn({.midiEvent = true});
        stage.rest();
        expect(noteOn(60, 0).channel(3).input(1), "C4 off");
        expect(controller(64, 0).input(1), "Controller Change 64 0");
        expect(event(MessageType::timingTick).input(1), "Timing Tick 0 0");
        expect(event(MessageType::activeSensing).input(1), "Active Sensing 0 0");
        expect(d, R"(> input="1" channel="3" midiEvent="Note On,62" 80)");
        expect(c, "C4 on");
        for (const std::string off : {"", "D4 off"}) expect(noteOff(62).channel(3).input(1), off);
        stage.learn({.midiEvent = true});
        stage.rest();
        expect(controller(64, 1).input(2), R"(> input="2" channel="0" midiEvent="Controller Change,64" 1)");
        stage.commands().postEnableMidiInput(2, false);
        stage.played();
        EXPECT_TRUE(stage.orv->playMidiInputEvent(d)) << "no release is waited for";
    }
}
