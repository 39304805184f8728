#include "tests/sections/VirtualJoystick.h"

#include <csignal>
#include <thread>

#include "platform/Joysticks.h"
#include "tests/sections/JoystickStage.h"

namespace
{
void until(const std::function<bool()>& condition)
{
    while (!condition()) std::this_thread::sleep_for(std::chrono::milliseconds(1));
}
}  // namespace

TEST(Joysticks, AreReadAsTheyComeMoveAndGo)
{
    const Plugs plugs;
    if (SDL_NumJoysticks() > 0) GTEST_SKIP() << "a joystick is plugged in";
    Joysticks joysticks;
    EXPECT_FALSE(joysticks.read()[0]);
    VirtualJoystick one, two, three;
    auto readings = joysticks.read();
    EXPECT_EQ(readings[0], JoystickReading{});
    EXPECT_EQ(readings[1], JoystickReading{});
    EXPECT_FALSE(three.isOpen()) << "there is room for two";

    one.axis(0, -32768), one.axis(1, 32767), one.axis(5, 1);
    one.button(0, true), one.button(31, true);
    two.hat(SDL_HAT_LEFT);
    readings = joysticks.read();
    JoystickReading moved;
    moved.axes = {0, 65535, 32768, 32768, 32768, 32769};
    moved.buttons = 0x80000001u;
    EXPECT_EQ(readings[0], moved);
    EXPECT_EQ(readings[1]->pov, 27000);
    constexpr std::pair<Uint8, int> HATS[] = {{SDL_HAT_UP, 0},       {SDL_HAT_RIGHTUP, 4500},   {SDL_HAT_RIGHT, 9000},
                                              {SDL_HAT_DOWN, 18000}, {SDL_HAT_LEFTDOWN, 22500}, {0, 65535}};
    for (const auto& [hat, pov] : HATS) {
        two.hat(hat);
        EXPECT_EQ(joysticks.read()[1]->pov, pov);
    }

    one.unplug();
    EXPECT_FALSE(joysticks.read()[0]) << "empty before another takes the place";
    EXPECT_EQ(joysticks.read()[0], JoystickReading{});
    EXPECT_TRUE(three.isOpen());
}

TEST(Joysticks, TakeNoSignalsAndOpenNoWindow)
{
    struct sigaction before = {};
    struct sigaction after = {};
    sigaction(SIGINT, nullptr, &before);
    Joysticks joysticks;
    joysticks.read();
    sigaction(SIGINT, nullptr, &after);
    EXPECT_EQ(before.sa_handler, after.sa_handler);
    EXPECT_EQ(SDL_WasInit(SDL_INIT_VIDEO), 0u);
}

TEST(PluggedInJoystick, PlaysUntilItIsUnpluggedOrReadingStops)
{
    const Plugs plugs;
    if (SDL_NumJoysticks() > 0) GTEST_SKIP() << "a joystick is plugged in";
    JoystickStage stage;
    stage.load(controllerAxis(0, "Y", 7) + noteButton(0, 4, "C4") + noteButton(0, 35, "E4"));
    stage.orv->startJoysticks();
    std::string collected;
    const auto expectPlayed = [&](const std::string& wanted) {
        until([&] {
            const std::string now = stage.played();
            if (!now.empty()) collected += (collected.empty() ? "" : ", ") + now;
            return collected.size() >= wanted.size();
        });
        EXPECT_EQ(std::exchange(collected, {}), wanted);
    };
    VirtualJoystick first;
    until([&] { return first.isOpen(); });
    first.axis(1, 32767);
    expectPlayed("Controller Change 7 0");
    first.button(4, true);
    expectPlayed("C4 on");
    first.hat(SDL_HAT_RIGHT);
    expectPlayed("E4 on");
    first.hat(SDL_HAT_CENTERED);
    expectPlayed("E4 off");
    first.unplug();
    expectPlayed("C4 off");

    VirtualJoystick second;
    until([&] { return second.isOpen(); });
    second.button(4, true);
    expectPlayed("C4 on");
    stage.orv->stopJoysticks();
    expectPlayed("C4 off");
    stage.orv->startJoysticks();
    until([&] { return second.isOpen(); });
    second.button(4, false);
    expectPlayed("C4 off");
}
