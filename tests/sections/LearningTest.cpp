#include "backend/sections/Learning.h"

#include "backend/model/MidiEvent.h"
#include "tests/sections/JoystickStage.h"
#include "tests/sections/KeyStage.h"

using namespace Backend;
using namespace Backend::Joystick;
using Backend::MidiEngine::OrvMidiMessage;

namespace
{
const Key SHIFT{.keyCode = Key::LEFT_SHIFT}, A{.keyCode = 'A'}, SHIFT_A{.keyCode = 'A', .shift = true};

/// With a window. A plays C4 and, with Shift, C5; a button plays D4, and an axis controller 7.
struct LearnStage : JoystickStage {
    struct Step {
        std::function<void()> act;
        const char* result;  ///< what was played and, after " > ", what was learned
    };

    LearnStage()
    {
        openWindow();
        loadFile("learn.prg", "<ProgramFile><Program><ComputerInput>" + noteKey("A", "C4") + noteKey("Shift A", "C5") +
                                  "</ComputerInput><Joystick>" + controllerAxis(0, "X", 7) + noteButton(0, 4, "D4") +
                                  "</Joystick><Layers><Layer/></Layers></Program></ProgramFile>");
        section.getEngine().take({JoystickReading{}}, 0);  // plugged in, with its axes at the centre
        played();
        received();
    }

    void learn(const LearnKinds& kinds)
    {
        commands().postLearn(kinds, ++number);
        rest();
    }

    void run(const std::vector<Step>& steps)
    {
        for (const Step& step : steps) {
            step.act();
            const std::string what = played();
            const std::string learned = received([&](Message& message) { return describe(message); });
            EXPECT_EQ(what + (learned.empty() ? "" : " > " + learned), step.result) << "step " << &step - &steps[0];
        }
    }

    std::string describe(Message& message) const
    {
        const auto* const learned = message.number == GuiMessage::LEARNED ? message.payload.get<Learned>() : nullptr;
        if (learned == nullptr) return "";
        EXPECT_EQ(learned->number, number);
        if (const auto* key = std::get_if<Key>(&learned->input)) return key->toXmlString();
        if (const auto* id = std::get_if<JoyButtonElementId>(&learned->input)) return std::to_string(id->button);
        if (const auto* id = std::get_if<JoyAxisElementId>(&learned->input)) return std::string(getAxisName(id->axis));
        const auto& event = std::get<OrvMidiMessage>(learned->input);
        return MidiInput::MidiEvent::of(event).toXmlAttributes() + " " + std::to_string(event.getD2());
    }

    std::function<void()> key(const Key& key, bool isDown, bool isRepeat = false)
    {
        return [=, this] { isDown ? commands().postKeyDown(key, isRepeat) : commands().postKeyUp(key); };
    }
    std::function<void()> button(bool isDown, bool isRepeat = false)
    {
        return [=, this] { isDown ? down(0, 4, isRepeat) : up(0, 4); };
    }
    std::function<void()> axisTo(int value)
    {
        return [=, this] { axis(0, "X", value); };
    }
    std::function<void()> learning(const LearnKinds& kinds)
    {
        return [=, this] { learn(kinds); };
    }

    std::uint32_t number = 0;
};
}  // namespace

TEST(Learning, SwallowsThePressThatIsLearnedAndPlaysWhatWasHeld)
{
    LearnStage stage;
    const auto ofKeys = stage.learning({.key = true});
    const auto ofJoysticks = stage.learning({.joystickButton = true, .joystickAxis = true});
    stage.run({
        {stage.key(A, true), "C4 on"},
        {ofKeys, ""},
        {stage.key(A, false), "C4 off"},
        {stage.key(SHIFT, true), ""},
        {stage.key(SHIFT_A, true), " > Shift A"},
        {stage.key(SHIFT_A, true, true), ""},
        {stage.key(SHIFT_A, false), ""},
        {stage.key(SHIFT, false), ""},
        {stage.key(SHIFT_A, true), "C5 on"},
        {stage.key(A, false), "C4 off"},
        {ofKeys, ""},
        {stage.key(SHIFT, true), ""},
        {stage.key(SHIFT, false), " > Left Shift"},

        {stage.button(true), "D4 on"},
        {ofJoysticks, ""},
        {stage.button(false), "D4 off"},
        {stage.key(A, true), "C4 on"},  // no key is asked for
        {stage.button(true), " > 4"},
        {stage.button(true, true), ""},
        {stage.button(false), ""},
        {stage.button(true), "D4 on"},

        {ofJoysticks, ""},
        {stage.axisTo(32768 + Learning::AXIS_MOVEMENT - 1), ""},
        {ofKeys, "Controller Change 7 95"},  // another one takes its place: the axis is not left where it was
        {ofJoysticks, ""},
        {stage.axisTo(32769), ""},
        {stage.axisTo(32767), " > X"},
        {stage.axisTo(0), "Controller Change 7 0"},
        {ofJoysticks, ""},
        {[&] { stage.orv->setGuiWindowHandle({}); }, ""},
        {stage.button(false), "D4 off"},
        {stage.button(true), "D4 on"},
    });
}

/// By the way through the backend, and by that of a host that plays live.
TEST(Learning, OfMidiIsTheSameOnBothWays)
{
    for (const bool isLive : {false, true}) {
        LearnStage stage;
        const auto arrives = [&](const OrvMidiMessage& event) {
            return [&stage, event, isLive] {
                if (!isLive || !stage.orv->playMidiInputEvent(event)) stage.commands().postProcessMidiInputEvent(event);
            };
        };
        const TestEvent tick = event(MessageType::timingTick), sensing = event(MessageType::activeSensing);
        const auto ofMidi = stage.learning({.midiEvent = true});
        stage.run({
            {arrives(noteOn(60).channel(3).input(1)), "C4 on"},
            {arrives(controller(64, 127).input(1)), "Controller Change 64 127"},
            {ofMidi, ""},
            {arrives(noteOn(60, 0).channel(3).input(1)), "C4 off"},
            {arrives(controller(64, 0).input(1)), "Controller Change 64 0"},
            {arrives(tick.input(1)), "Timing Tick 0 0"},
            {arrives(sensing.input(1)), "Active Sensing 0 0"},
            {arrives(noteOn(62, 80).channel(3).input(1)), R"( >  input="1" channel="3" midiEvent="Note On,62" 80)"},
            {arrives(noteOn(64).channel(3).input(1)), "E4 on"},
            {arrives(noteOff(62).channel(2).input(1)), "D4 off"},
            {arrives(noteOff(62).channel(3).input(1)), ""},
            {arrives(noteOff(62).channel(3).input(1)), "D4 off"},
            {ofMidi, ""},
            {arrives(controller(64, 1).input(2)), R"( >  input="2" channel="0" midiEvent="Controller Change,64" 1)"},
            {[&] { stage.commands().postEnableMidiInput(2, false); }, ""},
        });
        EXPECT_TRUE(stage.orv->playMidiInputEvent(noteOn(65).input(1))) << "nothing is waited for any more";
    }
}
