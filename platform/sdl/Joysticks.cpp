#include "platform/Joysticks.h"

#include <SDL.h>

#include <algorithm>

#include "platform/DbgStream.h"

using WindowsLib::DbgStream;

namespace
{
constexpr int MAX_BUTTONS = 32;
constexpr int POV_HAT = 0;

std::uint16_t readPov(SDL_Joystick* device)
{
    // SDL returns zero, the centre, for a joystick without a hat.
    switch (SDL_JoystickGetHat(device, POV_HAT)) {
        case SDL_HAT_UP:
            return 0;
        case SDL_HAT_RIGHTUP:
            return 4500;
        case SDL_HAT_RIGHT:
            return 9000;
        case SDL_HAT_RIGHTDOWN:
            return 13500;
        case SDL_HAT_DOWN:
            return 18000;
        case SDL_HAT_LEFTDOWN:
            return 22500;
        case SDL_HAT_LEFT:
            return 27000;
        case SDL_HAT_LEFTUP:
            return 31500;
        default:
            return JoystickReading::POV_CENTRED;
    }
}

JoystickReading readDevice(SDL_Joystick* device)
{
    JoystickReading reading;
    const int axes = std::min(SDL_JoystickNumAxes(device), static_cast<int>(JoystickReading::AXES));
    for (int axis = 0; axis < axes; ++axis)
        reading.axes[static_cast<std::size_t>(axis)] =
            static_cast<std::uint16_t>(SDL_JoystickGetAxis(device, axis) + JoystickReading::AXIS_CENTRE);
    const int buttons = std::min(SDL_JoystickNumButtons(device), MAX_BUTTONS);
    for (int button = 0; button < buttons; ++button)
        if (SDL_JoystickGetButton(device, button) != 0) reading.buttons |= 1u << button;
    if (SDL_JoystickNumHats(device) > POV_HAT) reading.pov = readPov(device);
    return reading;
}

const char* nameOf(const char* name) { return name != nullptr ? name : "without a name"; }
}  // namespace

struct Joysticks::Devices {
    std::array<SDL_Joystick*, MAX_JOYSTICKS> places{};
    SDL_JoystickID refused = -1;  // already reported on the debug stream
    bool started = false;

    bool isOpen(SDL_JoystickID id) const
    {
        return std::ranges::any_of(
            places, [id](SDL_Joystick* device) { return device != nullptr && SDL_JoystickInstanceID(device) == id; });
    }

    SDL_Joystick* openNext();
    void closeDetached();
};

/// The first joystick that is not open yet, or null. One that the user may not read is tried again each time.
SDL_Joystick* Joysticks::Devices::openNext()
{
    for (int index = 0; index < SDL_NumJoysticks(); ++index) {
        const SDL_JoystickID id = SDL_JoystickGetDeviceInstanceID(index);
        if (isOpen(id)) continue;
        if (SDL_Joystick* device = SDL_JoystickOpen(index)) return device;
        if (refused != id)
            DbgStream() << "joystick " << nameOf(SDL_JoystickNameForIndex(index)) << ": " << SDL_GetError();
        refused = id;
    }
    return nullptr;
}

void Joysticks::Devices::closeDetached()
{
    for (SDL_Joystick*& device : places) {
        if (device == nullptr || SDL_JoystickGetAttached(device) == SDL_TRUE) continue;
        DbgStream() << "joystick " << nameOf(SDL_JoystickName(device)) << " was unplugged";
        SDL_JoystickClose(device);
        device = nullptr;
    }
}

Joysticks::Joysticks() : devices(std::make_unique<Devices>())
{
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    SDL_SetHint(SDL_HINT_JOYSTICK_ALLOW_BACKGROUND_EVENTS, "1");
    const bool isOurs = SDL_WasInit(SDL_INIT_JOYSTICK) == 0;
    devices->started = SDL_InitSubSystem(SDL_INIT_JOYSTICK) == 0;
    if (!devices->started) DbgStream() << "no joysticks: " << SDL_GetError();
    // Without a reader the event queue would fill. A host that uses SDL's joystick events keeps them.
    if (devices->started && isOurs) SDL_JoystickEventState(SDL_IGNORE);
}

Joysticks::~Joysticks()
{
    for (SDL_Joystick* device : devices->places)
        if (device != nullptr) SDL_JoystickClose(device);
    if (devices->started) SDL_QuitSubSystem(SDL_INIT_JOYSTICK);
    SDL_TLSCleanup();  // SDL frees its thread-local data only for threads that it started
}

std::string Joysticks::getName(std::size_t place) const
{
    SDL_Joystick* const device = devices->places[place];
    const char* const name = device != nullptr ? SDL_JoystickName(device) : nullptr;
    return name != nullptr ? name : "";
}

Joysticks::Readings Joysticks::read()
{
    Readings readings;
    if (!devices->started) return readings;
    SDL_JoystickUpdate();
    const auto before = devices->places;
    devices->closeDetached();
    for (std::size_t place = 0; place < MAX_JOYSTICKS; ++place) {
        SDL_Joystick*& device = devices->places[place];
        const bool isFree = before[place] == nullptr;
        if (isFree && (device = devices->openNext()) != nullptr)
            DbgStream() << "joystick " << place << ": " << nameOf(SDL_JoystickName(device));
        if (device != nullptr) readings[place] = readDevice(device);
    }
    return readings;
}
