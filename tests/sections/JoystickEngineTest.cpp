#include "backend/sections/joystick/JoystickEngine.h"

#include <gtest/gtest.h>

using namespace Backend::Joystick;

namespace
{
/// An engine without a device: readings go in, and what it reports is written down.
class EngineStage : JoystickEngine::Listener
{
public:
    EngineStage() { engine.setRepeat({.delay = 400, .interval = 25}); }

    JoystickReading first{};
    Joysticks::Readings readings{};

    /// Takes the first joystick as it stands in `first`; what was reported of it, "0:X=7 0:3 down 0:3 repeat 0:3 up".
    std::string take(std::uint32_t now = 0)
    {
        readings[0] = first;
        return takeAll(now);
    }
    std::string takeAll(std::uint32_t now = 0)
    {
        engine.take(readings, now);
        return std::exchange(reported, {});
    }

private:
    void report(int joystick, const std::string& what)
    {
        reported += (reported.empty() ? "" : " ") + std::to_string(joystick) + ":" + what;
    }
    void axisChanged(const JoyAxisElementId& id, int value) override
    {
        report(id.joystick, std::string(getAxisName(id.axis)) + "=" + std::to_string(value));
    }
    void buttonDown(const JoyButtonElementId& id, bool repeat) override
    {
        report(id.joystick, std::to_string(id.button) + (repeat ? " repeat" : " down"));
    }
    void buttonUp(const JoyButtonElementId& id) override { report(id.joystick, std::to_string(id.button) + " up"); }

    std::string reported;
    JoystickEngine engine{*this};
};
}  // namespace

TEST(JoystickEngine, ReportsAxesByTheirNamesOnTheScreenThenButtonsThenDirections)
{
    EngineStage stage;
    stage.take();
    stage.first.axes = {1, 2, 3, 4, 5, 6};  // X, Y, Z, R, U, V of the hardware
    stage.first.buttons = 1u << 31 | 1u << 2;
    stage.first.pov = 27000;
    EXPECT_EQ(stage.take(), "0:X=1 0:Y=65533 0:Z=3 0:U=4 0:V=65530 0:R=6 0:2 down 0:31 down 0:34 down");
    EXPECT_EQ(stage.take(), "") << "nothing has changed";
    stage.first.axes[1] = 65535;
    EXPECT_EQ(stage.take(), "0:Y=0");
    EXPECT_EQ(getAxisName(6), "");
    EXPECT_EQ(findAxis("x"), -1);
}

TEST(JoystickEngine, PressesADirectionOnlyWhereTheHatPointsExactly)
{
    EngineStage stage;
    stage.take();
    for (const auto& [pov, reported] : {std::pair<std::uint16_t, const char*>{0, "0:32 down"},
                                        {9000, "0:32 up 0:35 down"},
                                        {13500, "0:35 up"},
                                        {18000, "0:33 down"},
                                        {27000, "0:33 up 0:34 down"},
                                        {0, "0:32 down 0:34 up"},
                                        {JoystickReading::POV_CENTRED, "0:32 up"}}) {
        stage.first.pov = pov;
        EXPECT_EQ(stage.take(), reported) << pov;
    }
}

TEST(JoystickEngine, RepeatsAHeldButtonAsAKeyRepeats)
{
    for (const std::uint32_t pressed : {1000u, 0u, 0u - 100u}) {  // the last one wraps round while it is held
        EngineStage stage;
        stage.take(pressed - 10);
        stage.first.buttons = 1;
        EXPECT_EQ(stage.take(pressed), "0:0 down");
        EXPECT_EQ(stage.take(pressed + 399), "");
        EXPECT_EQ(stage.take(pressed + 400), "0:0 repeat") << pressed;
        EXPECT_EQ(stage.take(pressed + 425), "") << "exceeded, not reached";
        EXPECT_EQ(stage.take(pressed + 426), "0:0 repeat");
        stage.first.buttons = 0;
        EXPECT_EQ(stage.take(pressed + 600), "0:0 up");
        EXPECT_EQ(stage.take(pressed + 2000), "");
    }
}

TEST(JoystickEngine, LetsAJoystickGoWithWhatItHeldAndComeBackAnew)
{
    EngineStage stage;
    stage.readings[1] = JoystickReading{};
    stage.take();
    stage.first.buttons = 0b101;
    stage.first.pov = 0;
    stage.readings[1]->axes[0] = 0;
    EXPECT_EQ(stage.take(), "0:0 down 0:2 down 0:32 down 1:X=0");
    stage.readings[0] = std::nullopt;
    stage.readings[1]->buttons = 1;
    EXPECT_EQ(stage.takeAll(), "0:0 up 0:2 up 0:32 up 1:0 down");
    EXPECT_EQ(stage.takeAll(800), "1:0 repeat");
    stage.first.axes[3] = 1;
    stage.first.buttons = 0b100;
    EXPECT_EQ(stage.take(810), "") << "the first reading says where it rests";
    EXPECT_EQ(stage.take(9000), "1:0 repeat") << "the other button was down when it came, so it does not repeat";
    stage.first.buttons = 0;
    stage.first.axes[3] = 2;
    EXPECT_EQ(stage.take(9001), "0:U=2 0:2 up");
}
