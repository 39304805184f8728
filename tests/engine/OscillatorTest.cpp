#include <cmath>
#include <numbers>

#include "backend/engine/SineWave.h"
#include "backend/model/OscList.h"
#include "tests/engine/EngineStage.h"
#include "tests/stage/Allocations.h"

using namespace Backend;
using namespace Backend::Oscillators;

namespace
{
/// Oscillators, with a slice for each pulse.
struct OscStage : EngineStage {
    int pulse = 0;

    explicit OscStage(const std::string& oscillators)
    {
        setList(oscillators);
        play(10);
    }

    void setList(const std::string& oscillators)
    {
        OscList list;
        list.readXml(rootOf("<Oscillators>" + oscillators + "</Oscillators>"));
        engine.setOscList(list.getOscillators());
    }
    void start(int count)
    {
        for (int id = 0; id < count; ++id) engine.setOscPlaying(id, true);
    }
    /// What is played until that pulse, as lines of an event list.
    std::string play(int until)
    {
        std::string lines;
        for (; pulse < until; ++pulse) {
            slice(pulse, pulse + 1);
            for (const auto& event : player.events)
                lines += std::to_string(pulse) + "," + std::to_string(event.getOutput()) + "," +
                         std::to_string(event.getStatusWithChannel()) + "," + std::to_string(event.getD1()) + "," +
                         std::to_string(event.getD2()) + "\n";
        }
        return lines;
    }
};

const std::string LAYERED = "<Oscillator type='pulse' speed='4' midiMessage='Controller Change,1'";
}  // namespace

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

TEST(Oscillators, StandAtThePulseThatCameByLast)
{
    const std::string saw =
        "<Oscillator type='saw' speed='40' min='0' max='39' detail='1' output='0' channel='0' "
        "midiMessage='Controller Change,1'/>";
    OscStage stage(saw);
    stage.play(25);
    stage.start(1);
    EXPECT_EQ(stage.play(26), "25,0,176,1,1\n");
    stage.engine.setOscSpeed(0, 80);
    EXPECT_EQ(stage.play(28), "26,0,176,1,2\n") << "half a step a pulse, rounded up";
    stage.engine.setOscSpeed(1, 40);
    stage.engine.setOscPlaying(-1, true);
    stage.slice(28, 5028);  // too long: nothing, but the clock went on
    stage.pulse = 5028;
    EXPECT_EQ(stage.play(5029), "5028,0,176,1,23\n") << "it goes on as if it had played 5001 pulses";

    stage.setList(saw);
    stage.start(1);
    EXPECT_EQ(stage.play(5030), "5029,0,176,1,29\n") << "a new list starts from pulse 0";
}

TEST(Oscillators, ShowEveryOtherValueTheyPlay)
{
    OscStage stage("<Oscillator type='saw' speed='40' min='0' max='39' detail='3' stopValue='5'/>" + LAYERED + "/>");
    stage.engine.setGuiWindowHandle(stage.window.handle());
    stage.start(2);
    stage.play(22);
    EXPECT_EQ(stage.window.received([&](Message& message) {
        return message.number == GuiMessage::OSC_VALUE ? TestWindow::parameters(message) : "";
    }),
              "0 5, 1 0, 1 127, 1 0, 0 6, 1 127, 1 0, 1 127, 0 12, 1 0");
}

TEST(Oscillators, AllocateNothingWhileTheyPlay)
{
    OscStage stage(LAYERED + " output='0'/><Oscillator detail='1' output='0' midiMessage='Pitch Bend'/>");
    stage.start(2);
    stage.player.events.reserve(10000);
    const auto before = allocationsOfThisThread();
    stage.engine.playTimeSlice(10, 2000);
    EXPECT_EQ(allocationsOfThisThread(), before);
    EXPECT_GT(stage.player.events.size(), 1000u);
}
