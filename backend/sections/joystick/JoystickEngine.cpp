#include "backend/sections/joystick/JoystickEngine.h"

#include <algorithm>

#include "platform/Clock.h"

namespace Backend::Joystick
{
static_assert(Joysticks::MAX_JOYSTICKS == JOYSTICKS);
static_assert(JoystickReading::AXES == JOY_AXES.size());

namespace
{
constexpr int HIGHEST_POSITION = 65535;
}

void JoystickEngine::start()
{
    if (!thread.isStarted()) thread.start("orv-joystick", [this] { run(); });
}

void JoystickEngine::stop()
{
    if (!thread.isStarted()) return;
    stopEvent.set();
    thread.join();
}

void JoystickEngine::run()
{
    setRepeat(getKeyRepeat());
    Joysticks joysticks;
    bool isAny = false;
    do {
        const auto readings = joysticks.read();
        reportDevices(readings, joysticks);
        take(readings, monotonicMilliseconds());
        isAny = std::ranges::any_of(readings, [](const auto& reading) { return reading.has_value(); });
    } while (!stopEvent.waitFor(isAny ? POLL_INTERVAL : LOOK_INTERVAL));
    reportDevices({}, joysticks);
    take({}, monotonicMilliseconds());
}

/// Those that came or went since the last reading.
void JoystickEngine::reportDevices(const Joysticks::Readings& readings, const Joysticks& joysticks)
{
    for (std::size_t joystick = 0; joystick < readings.size(); ++joystick) {
        const bool isPresent = readings[joystick].has_value();
        if (isPresent != watched[joystick].last.has_value())
            listener.deviceChanged(static_cast<int>(joystick), isPresent,
                                   isPresent ? joysticks.getName(joystick) : std::string());
    }
}

void JoystickEngine::setRepeat(const KeyRepeat& repeat)
{
    for (Watched& joystick : watched)
        for (ButtonRepeat& button : joystick.repeats) {
            button.repeatDelay = repeat.delay;
            button.repeatInterval = repeat.interval;
        }
}

void JoystickEngine::take(const Joysticks::Readings& readings, std::uint32_t now)
{
    for (int joystick = 0; joystick < JOYSTICKS; ++joystick) {
        const auto& reading = readings[static_cast<std::size_t>(joystick)];
        auto& last = watched[static_cast<std::size_t>(joystick)].last;
        if (reading) compareAxes(joystick, last ? &*last : nullptr, *reading);
        if (last) compareButtons(joystick, pressedIn(*last), reading ? pressedIn(*reading) : Pressed{}, now);
        last = reading;
    }
}

void JoystickEngine::compareAxes(int joystick, const JoystickReading* before, const JoystickReading& reading)
{
    for (std::size_t axis = 0; axis < JOY_AXES.size(); ++axis) {
        const auto [name, position, isReversed] = JOY_AXES[axis];
        const JoyAxisElementId id{joystick, static_cast<int>(axis)};
        const int value = isReversed ? HIGHEST_POSITION - reading.axes[position] : reading.axes[position];
        if (before == nullptr)
            listener.axisFound(id, value);
        else if (reading.axes[position] != before->axes[position])
            listener.axisChanged(id, value);
    }
}

void JoystickEngine::compareButtons(int joystick, const Pressed& before, const Pressed& pressed, std::uint32_t now)
{
    for (std::size_t button = 0; button < BUTTONS; ++button) {
        const JoyButtonElementId id{joystick, static_cast<int>(button)};
        ButtonRepeat& repeat = watched[static_cast<std::size_t>(joystick)].repeats[button];
        if (pressed[button] && !before[button]) {
            repeat.press(now);
            listener.buttonDown(id, false);
        } else if (!pressed[button] && before[button]) {
            repeat.release();
            listener.buttonUp(id);
        } else if (repeat.isDue(now)) {
            repeat.lastRepeat = now;
            listener.buttonDown(id, true);
        }
    }
}

/// The pressed buttons, then the directions of the hat.
JoystickEngine::Pressed JoystickEngine::pressedIn(const JoystickReading& reading)
{
    Pressed pressed(reading.buttons);
    for (std::size_t direction = 0; direction < DIRECTIONS.size(); ++direction)
        pressed[FIRST_DIRECTION + direction] = reading.pov == DIRECTIONS[direction];
    return pressed;
}
}  // namespace Backend::Joystick
