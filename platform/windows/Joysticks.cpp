#include "platform/Joysticks.h"

#include <windows.h>
// After windows.h
#include <mmsystem.h>

#include <algorithm>
#include <cwchar>
#include <iterator>

#include "platform/DbgStream.h"
#include "platform/windows/Wide.h"

using WindowsLib::DbgStream;

namespace
{
std::uint16_t scale(DWORD value, UINT lowest, UINT highest)
{
    if (highest <= lowest) return JoystickReading::AXIS_CENTRE;
    const std::uint64_t position = std::clamp<std::uint64_t>(value, lowest, highest) - lowest;
    return static_cast<std::uint16_t>(position * 65535 / (highest - lowest));
}

/// The name that the driver's installation stored; what the device itself reports is the name of the driver.
std::wstring storedName(const JOYCAPSW& device)
{
    wchar_t key[200];
    std::swprintf(
        key, std::size(key),
        L"System\\CurrentControlSet\\Control\\MediaProperties\\PrivateProperties\\Joystick\\OEM\\VID_%04X&PID_%04X",
        static_cast<unsigned>(device.wMid), static_cast<unsigned>(device.wPid));
    for (const HKEY hive : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE}) {
        wchar_t name[200];
        DWORD size = sizeof name;
        if (RegGetValueW(hive, key, L"OEMName", RRF_RT_REG_SZ, nullptr, name, &size) == ERROR_SUCCESS) return name;
    }
    return device.szPname;
}
}  // namespace

struct Joysticks::Devices {
    static constexpr UINT NONE = 0xFFFFFFFF;

    struct Place {
        UINT device = NONE;
        JOYCAPSW limits{};
    };

    std::array<Place, MAX_JOYSTICKS> places;
    UINT next = 0;  // the device to look at next; one at a time, because it takes milliseconds where there is none

    std::optional<JoystickReading> read(const Place& place) const;
    void open(Place& place);
};

std::optional<JoystickReading> Joysticks::Devices::read(const Place& place) const
{
    JOYINFOEX state{};
    state.dwSize = sizeof state;
    state.dwFlags = JOY_RETURNALL;
    if (place.device == NONE || joyGetPosEx(place.device, &state) != JOYERR_NOERROR) return std::nullopt;
    const JOYCAPSW& limits = place.limits;
    const auto has = [&](UINT capability) { return (limits.wCaps & capability) != 0; };
    JoystickReading reading;
    reading.axes[0] = scale(state.dwXpos, limits.wXmin, limits.wXmax);
    reading.axes[1] = scale(state.dwYpos, limits.wYmin, limits.wYmax);
    if (has(JOYCAPS_HASZ)) reading.axes[2] = scale(state.dwZpos, limits.wZmin, limits.wZmax);
    if (has(JOYCAPS_HASR)) reading.axes[3] = scale(state.dwRpos, limits.wRmin, limits.wRmax);
    if (has(JOYCAPS_HASU)) reading.axes[4] = scale(state.dwUpos, limits.wUmin, limits.wUmax);
    if (has(JOYCAPS_HASV)) reading.axes[5] = scale(state.dwVpos, limits.wVmin, limits.wVmax);
    reading.buttons = state.dwButtons;
    if (has(JOYCAPS_HASPOV)) reading.pov = static_cast<std::uint16_t>(state.dwPOV);
    return reading;
}

void Joysticks::Devices::open(Place& place)
{
    const UINT count = joyGetNumDevs();
    const UINT device = count == 0 ? NONE : next++ % count;
    if (device == NONE || std::ranges::any_of(places, [&](const Place& each) { return each.device == device; })) return;
    JOYINFOEX state{};
    state.dwSize = sizeof state;
    state.dwFlags = JOY_RETURNBUTTONS;
    Place found{.device = device, .limits = {}};
    if (joyGetPosEx(device, &state) != JOYERR_NOERROR ||
        joyGetDevCapsW(device, &found.limits, sizeof found.limits) != JOYERR_NOERROR)
        return;
    place = found;
    DbgStream() << "joystick " << device << ": " << narrow(storedName(place.limits));
}

Joysticks::Joysticks() : devices(std::make_unique<Devices>()) {}

Joysticks::~Joysticks() = default;

std::string Joysticks::getName(std::size_t place) const
{
    const Devices::Place& there = devices->places[place];
    return there.device != Devices::NONE ? narrow(storedName(there.limits)) : "";
}

Joysticks::Readings Joysticks::read()
{
    Readings readings;
    for (std::size_t index = 0; index < MAX_JOYSTICKS; ++index) {
        Devices::Place& place = devices->places[index];
        if (place.device == Devices::NONE) {
            devices->open(place);
            readings[index] = devices->read(place);
        } else if (!(readings[index] = devices->read(place))) {
            DbgStream() << "joystick " << place.device << " was unplugged";
            place = {};
        }
    }
    return readings;
}
