#pragma once

#include <array>
#include <bitset>
#include <cstdint>
#include <optional>
#include <string>

#include "backend/model/JoyAxisElementId.h"
#include "backend/model/JoyButtonElementId.h"
#include "backend/sections/joystick/ButtonRepeat.h"
#include "platform/Event.h"
#include "platform/Export.h"
#include "platform/Joysticks.h"
#include "platform/Thread.h"

namespace Backend::Joystick
{
/// Reads both joysticks and reports changes. The reports depend on the readings and the times passed to `take` alone;
/// the thread only calls it. The first reading after a joystick was plugged in only reports where the axes stand; later
/// ones are compared with it. A joystick that is unplugged releases the buttons that were held.
class ORV_API JoystickEngine
{
public:
    static constexpr std::chrono::milliseconds POLL_INTERVAL{10};
    /// How often to look for a joystick while none is plugged in.
    static constexpr std::chrono::milliseconds LOOK_INTERVAL{200};

    /// Receives the reports, on the thread of the engine.
    class Listener
    {
    public:
        virtual ~Listener() = default;
        /// A joystick, 0 or 1, was plugged in, with what it calls itself, or was unplugged, without a name. Called only
        /// while the engine reads the joysticks of the system.
        virtual void deviceChanged(int /*joystick*/, bool /*present*/, const std::string& /*name*/) {}
        /// The joystick was plugged in. Values are 0 to 65535.
        virtual void axisFound(const JoyAxisElementId&, int /*value*/) {}
        virtual void axisChanged(const JoyAxisElementId& id, int value) = 0;
        /// Called again as a repeat while the button is held.
        virtual void buttonDown(const JoyButtonElementId& id, bool repeat) = 0;
        virtual void buttonUp(const JoyButtonElementId& id) = 0;
    };

    /// `reportTo` must outlive the engine.
    explicit JoystickEngine(Listener& reportTo) : listener(reportTo) {}
    ~JoystickEngine() { stop(); }

    JoystickEngine(const JoystickEngine&) = delete;
    JoystickEngine& operator=(const JoystickEngine&) = delete;

    /// Starts and stops the thread that reads the joysticks of the system. When it stops, held buttons are released.
    /// There must be only one such thread.
    void start();
    void stop();

    // The engine's thread, or any single thread while that is not started

    /// Sets how held buttons repeat.
    void setRepeat(const KeyRepeat& repeat);

    /// Compares with the previous readings and reports the changes; `now` is in milliseconds and may wrap round.
    void take(const Joysticks::Readings& readings, std::uint32_t now);

private:
    using Pressed = std::bitset<BUTTONS>;

    struct Watched {
        std::optional<JoystickReading> last{};
        std::array<ButtonRepeat, BUTTONS> repeats{};
    };

    static Pressed pressedIn(const JoystickReading& reading);
    void run();
    void reportDevices(const Joysticks::Readings& readings, const Joysticks& joysticks);
    /// `before` is null for the first reading.
    void compareAxes(int joystick, const JoystickReading* before, const JoystickReading& reading);
    void compareButtons(int joystick, const Pressed& before, const Pressed& pressed, std::uint32_t now);

    Listener& listener;
    std::array<Watched, JOYSTICKS> watched{};
    Event stopEvent;
    Thread thread;
};
}  // namespace Backend::Joystick
