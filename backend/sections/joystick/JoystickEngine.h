#pragma once

#include <array>
#include <bitset>
#include <cstdint>
#include <optional>

#include "backend/model/JoyAxisElementId.h"
#include "backend/model/JoyButtonElementId.h"
#include "backend/sections/joystick/ButtonRepeat.h"
#include "platform/Event.h"
#include "platform/Export.h"
#include "platform/Joysticks.h"
#include "platform/Thread.h"

namespace Backend::Joystick
{
/// Watches both joysticks and reports what changes. What it reports follows from the readings and the time alone
/// (`take`); the thread, once started, only feeds it. The first reading of a joystick reports nothing, whenever it
/// comes: it is what later ones are compared with. A joystick that goes releases the buttons it held.
class ORV_API JoystickEngine
{
public:
    static constexpr std::chrono::milliseconds POLL_INTERVAL{10};
    /// How often to look for a joystick while there is none.
    static constexpr std::chrono::milliseconds LOOK_INTERVAL{200};

    /// Receives the reports, on the engine's thread.
    class Listener
    {
    public:
        virtual ~Listener() = default;
        /// 0 to 65535.
        virtual void axisChanged(const JoyAxisElementId& id, int value) = 0;
        /// Also again and again while it is held, as a repeat.
        virtual void buttonDown(const JoyButtonElementId& id, bool repeat) = 0;
        virtual void buttonUp(const JoyButtonElementId& id) = 0;
    };

    /// The listener must outlive it.
    explicit JoystickEngine(Listener& reportTo) : listener(reportTo) {}
    ~JoystickEngine() { stop(); }

    JoystickEngine(const JoystickEngine&) = delete;
    JoystickEngine& operator=(const JoystickEngine&) = delete;

    /// Starts and ends the thread that watches the system's joysticks. At its end both go, with what they held. One
    /// thread at a time.
    void start();
    void stop();

    // On the engine's thread, or on any one thread while it is not started

    /// How held buttons repeat from now on.
    void setRepeat(const KeyRepeat& repeat);

    /// Compares with the readings before and reports; `now` is in milliseconds and may wrap round.
    void take(const Joysticks::Readings& readings, std::uint32_t now);

private:
    using Pressed = std::bitset<BUTTONS>;

    struct Watched {
        std::optional<JoystickReading> last{};
        std::array<ButtonRepeat, BUTTONS> repeats{};
    };

    static Pressed pressedIn(const JoystickReading& reading);
    void run();
    void compareAxes(int joystick, const JoystickReading& before, const JoystickReading& reading);
    void compareButtons(int joystick, const Pressed& before, const Pressed& pressed, std::uint32_t now);

    Listener& listener;
    std::array<Watched, JOYSTICKS> watched{};
    Event stopEvent;
    Thread thread;
};
}  // namespace Backend::Joystick
