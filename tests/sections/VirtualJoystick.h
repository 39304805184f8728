#pragma once

#include <SDL.h>
#include <gtest/gtest.h>

/// A device with six axes, 32 buttons and a hat, plugged in as long as it lives. Its parts move once it was opened.
class VirtualJoystick
{
public:
    VirtualJoystick()
    {
        SDL_VirtualJoystickDesc description{};
        description.version = SDL_VIRTUAL_JOYSTICK_DESC_VERSION;
        description.type = SDL_JOYSTICK_TYPE_FLIGHT_STICK;
        description.naxes = 6;
        description.nbuttons = 32;
        description.nhats = 1;
        description.name = "Virtual";
        SDL_LockJoysticks();
        id = SDL_JoystickGetDeviceInstanceID(SDL_JoystickAttachVirtualEx(&description));
        SDL_UnlockJoysticks();
    }
    ~VirtualJoystick() { unplug(); }
    VirtualJoystick(const VirtualJoystick&) = delete;
    VirtualJoystick& operator=(const VirtualJoystick&) = delete;

    bool isOpen() const { return SDL_JoystickFromInstanceID(id) != nullptr; }

    void axis(int axis, Sint16 value) { SDL_JoystickSetVirtualAxis(device(), axis, value); }
    void button(int button, bool pressed) { SDL_JoystickSetVirtualButton(device(), button, pressed ? 1 : 0); }
    void hat(Uint8 value) { SDL_JoystickSetVirtualHat(device(), 0, value); }

    void unplug()
    {
        SDL_LockJoysticks();
        for (int index = 0; index < SDL_NumJoysticks(); ++index)
            if (SDL_JoystickGetDeviceInstanceID(index) == id) SDL_JoystickDetachVirtual(index);
        SDL_UnlockJoysticks();
    }

private:
    SDL_Joystick* device() const { return SDL_JoystickFromInstanceID(id); }

    SDL_JoystickID id = -1;
};

/// SDL as in a host that plugs joysticks in.
struct Plugs {
    Plugs()
    {
        SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
        EXPECT_EQ(SDL_InitSubSystem(SDL_INIT_JOYSTICK), 0) << SDL_GetError();
    }
    ~Plugs() { SDL_QuitSubSystem(SDL_INIT_JOYSTICK); }
};
