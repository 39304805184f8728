#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "platform/Export.h"

/// The state of a joystick.
struct JoystickReading {
    static constexpr std::size_t AXES = 6;
    static constexpr std::uint16_t AXIS_CENTRE = 32768;
    static constexpr std::uint16_t POV_CENTRED = 65535;

    /// In the order of the hardware: X, Y, Z, R, U, V. 0 is left, away from the player or released; an axis that the
    /// joystick lacks stays at the centre.
    std::array<std::uint16_t, AXES> axes{AXIS_CENTRE, AXIS_CENTRE, AXIS_CENTRE, AXIS_CENTRE, AXIS_CENTRE, AXIS_CENTRE};
    std::uint32_t buttons = 0;        ///< bit n is set while button n is pressed, 0 to 31
    std::uint16_t pov = POV_CENTRED;  ///< of the point-of-view hat: hundredths of a degree, clockwise from forward

    bool operator==(const JoystickReading&) const = default;
};

/// The first two joysticks, which may be plugged in and unplugged at any time. All operations on one thread, which may
/// be any. Needs neither a display nor a device, opens no window and handles no signals; without joystick support in
/// the system there are no joysticks.
class ORV_API Joysticks
{
public:
    static constexpr std::size_t MAX_JOYSTICKS = 2;
    using Readings = std::array<std::optional<JoystickReading>, MAX_JOYSTICKS>;

    Joysticks();
    ~Joysticks();

    Joysticks(const Joysticks&) = delete;
    Joysticks& operator=(const Joysticks&) = delete;

    /// The state of each joystick now, by place; none where there is no joystick. A new one gets the lowest free place.
    /// A place stays empty for at least one reading after its joystick was unplugged.
    Readings read();

    /// What the joystick in a place, 0 or 1, calls itself; empty without a joystick or a name.
    std::string getName(std::size_t place) const;

private:
    struct Devices;
    std::unique_ptr<Devices> devices;
};
