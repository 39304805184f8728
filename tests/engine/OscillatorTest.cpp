#include "backend/model/Oscillator.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <random>
#include <sstream>

#include "backend/engine/MidiEngine.h"
#include "backend/engine/SineWave.h"
#include "backend/messages/GuiMessages.h"
#include "backend/model/OscList.h"
#include "backend/xml/XmlDocument.h"
#include "tests/stage/Allocations.h"
#include "tests/stage/Stage.h"

using namespace Backend;
using namespace Backend::MidiEngine;
using namespace Backend::Oscillators;

namespace
{
OscList listOf(const std::string& oscillators)
{
    OscList list;
    list.readXml(XmlDocument("<Oscillators>" + oscillators + "</Oscillators>", XmlDocument::Source::text).getRoot());
    return list;
}

std::string textOf(const OscList& list, const std::vector<OscId>& ids = {})
{
    std::ostringstream out;
    list.writeXml(out, 0, ids);
    return out.str();
}

/// The engine alone, with a slice for each pulse.
struct Engine {
    RecordingPlayer player;
    Backend::MidiEngine::MidiEngine engine{player};
    int pulse = 0;

    explicit Engine(const std::string& oscillators)
    {
        engine.setMidiOutputPorts(MidiOutputPorts(2));
        engine.setDefaultMidiOutput(0);
        engine.setOscList(listOf(oscillators).getOscillators());
        play(10);
    }

    /// What is played until that pulse, as lines of an event list.
    std::string play(int until)
    {
        std::string lines;
        for (; pulse < until; ++pulse) {
            engine.playTimeSlice(pulse, pulse + 1);
            for (const auto& event : player.events)
                lines += std::to_string(pulse) + "," + std::to_string(event.getOutput()) + "," +
                         std::to_string(event.getStatusWithChannel()) + "," + std::to_string(event.getD1()) + "," +
                         std::to_string(event.getD2()) + "\n";
            player.events.clear();
        }
        return lines;
    }
    void switchAll(int count, bool on)
    {
        for (int id = 0; id < count; ++id) engine.setOscPlaying(id, on);
    }
};

const std::string LAYERED = "<Oscillator type='pulse' speed='4' midiMessage='Controller Change,1'";
}  // namespace

TEST(Oscillator, IsWrittenAsItIsReadAndReadAsItIsWritten)
{
    const OscList list = listOf(
        "<Oscillator/><Other/><Oscillator type='saw' speed='0' min='-1' max='16383' speedMode='ppq' stopValue='64' "
        "detail='0' midiMessage='Controller Change,7' output='1' channel='9' zone='3' playing='true'/>");
    const std::string text = textOf(list);
    EXPECT_EQ(text,
              "<Oscillators merge=\"false\">\n"
              "\t<Oscillator type=\"sin\" speed=\"480\" min=\"0\" max=\"127\" speedMode=\"noteInterval\" "
              "stopValue=\"-1\" detail=\"10\" midiMessage=\"Unknown\" output=\"-1\" channel=\"-1\" zone=\"-1\"/>\n"
              "\t<Oscillator type=\"saw\" speed=\"0\" min=\"-1\" max=\"16383\" speedMode=\"ppq\" stopValue=\"64\" "
              "detail=\"0\" midiMessage=\"Controller Change,7\" output=\"1\" channel=\"9\" zone=\"3\"/>\n"
              "</Oscillators>\n");
    OscList back;
    back.readXml(XmlDocument(text, XmlDocument::Source::text).getRoot());
    EXPECT_EQ(textOf(back), text);
    EXPECT_FALSE(list.findElement(1)->playing) << "it starts stopped";

    back.readXml(XmlDocument(textOf(list, {1}), XmlDocument::Source::text).getRoot());
    ASSERT_EQ(back.size(), 3u);
    EXPECT_EQ(back.findElement(2)->id, 2);
    EXPECT_EQ(back.findElement(2)->detail, 0);
}

TEST(SineWave, GivesTheValuesOfTheLibrarysSine)
{
    std::mt19937_64 random(1);
    const auto even = [&](double low, double high) { return std::uniform_real_distribution(low, high)(random); };
    for (int round = 0; round < 300000; ++round) {
        const double range = std::floor(std::exp2(even(0, 32)));
        const double base = std::floor(even(-1, 1) * std::exp2(even(0, 31)));
        const SineWave sine(range, base);
        // Any phase, and one at which the value changes
        double phase = even(-1, 1) * std::exp2(even(0, 32));
        ASSERT_EQ(sine.valueAt(phase), sine.exactValue(phase)) << range << " " << base << " " << phase;
        const double step = std::floor(even(0, range)) + 0.5;
        phase = std::asin(step / range * 2 - 1) + std::floor(even(-1e8, 1e8)) * 2 * std::numbers::pi;
        for (int i = 0; i < 3; ++i, phase = std::nextafter(phase, 1e10))
            ASSERT_EQ(sine.valueAt(phase), sine.exactValue(phase)) << range << " " << base << " " << phase;
    }
}

TEST(Oscillators, GoThroughTheLayersOrStraightOut)
{
    Engine stage(LAYERED + "/>" + LAYERED + " channel='5'/>" + LAYERED + " output='1'/>" +
                 "<Oscillator type='pulse' speed='4' midiMessage='Note On' zone='3' min='60' max='64'/>");
    Layers::Layer layer;
    layer.channel = 2;
    stage.engine.setLayerList({layer});
    stage.engine.setZoneMap({{.id = 3, .transpose = 12}});
    stage.switchAll(4, true);
    EXPECT_EQ(stage.play(13),
              "10,0,178,1,0\n10,0,181,1,0\n10,1,176,1,0\n10,0,146,72,0\n"
              "11,0,178,1,127\n11,0,181,1,127\n11,1,176,1,127\n11,0,146,76,0\n");
}

TEST(Oscillators, ComeBehindTheEventsOfTheirPulse)
{
    Engine stage(LAYERED + " output='0' channel='0'/>");
    stage.switchAll(1, true);
    stage.engine.appendTimedEvent(noteOn(60).output(0).channel(0).pulse(10));
    EXPECT_EQ(stage.play(11), "10,0,144,60,100\n10,0,176,1,0\n");
}

TEST(Oscillators, StandAtThePulseThatCameByLast)
{
    const std::string saw =
        "<Oscillator type='saw' speed='40' min='0' max='39' detail='1' output='0' channel='0' "
        "midiMessage='Controller Change,1'/>";
    Engine stage(saw);
    stage.play(25);
    stage.switchAll(1, true);
    EXPECT_EQ(stage.play(26), "25,0,176,1,1\n");
    stage.engine.setOscSpeed(0, 80);
    EXPECT_EQ(stage.play(28), "26,0,176,1,2\n") << "half a step a pulse, rounded up";
    stage.engine.setOscSpeed(1, 40);
    stage.engine.setOscPlaying(-1, true);
    stage.engine.playTimeSlice(28, 5028);  // too long: nothing, but the clock went on
    stage.pulse = 5028;
    EXPECT_EQ(stage.play(5029), "5028,0,176,1,23\n") << "it goes on as if it had played 5001 pulses";

    stage.engine.setOscList(listOf(saw).getOscillators());
    stage.switchAll(1, true);
    EXPECT_EQ(stage.play(5030), "5029,0,176,1,29\n") << "a new list starts from pulse 0";
}

TEST(Oscillators, ShowEveryOtherValueTheyPlay)
{
    Engine stage("<Oscillator type='saw' speed='40' min='0' max='39' detail='3' stopValue='5'/>" + LAYERED + "/>");
    const auto window = std::make_shared<MessageQueue>(64);
    stage.engine.setGuiWindowHandle(WindowHandle(window));
    stage.switchAll(2, true);
    stage.play(22);
    std::string shown;
    while (window->handleNext([&](Message& message) {
        if (message.number == GuiMessage::OSC_VALUE)
            shown += std::to_string(message.wparam) + ":" + std::to_string(message.lparam) + " ";
    })) {}
    EXPECT_EQ(shown, "0:5 1:0 1:127 1:0 0:6 1:127 1:0 1:127 0:12 1:0 ");
}

TEST(Oscillators, AllocateNothingWhileTheyPlay)
{
    Engine stage(LAYERED + " output='0'/><Oscillator detail='1' output='0' midiMessage='Pitch Bend'/>");
    stage.switchAll(2, true);
    stage.player.events.reserve(10000);
    const auto before = allocationsOfThisThread();
    stage.engine.playTimeSlice(10, 2000);
    EXPECT_EQ(allocationsOfThisThread(), before);
    EXPECT_GT(stage.player.events.size(), 1000u);
}
