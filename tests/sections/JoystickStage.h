#pragma once

#include "backend/sections/joystick/JoystickManager.h"
#include "tests/sections/SectionStage.h"

/// With joysticks that only report.
struct JoystickStage : SectionStage<Backend::Joystick::JoystickManager> {
    JoystickStage() : SectionStage(&Backend::OrvIF::getJoystickManager) {}

    Backend::Joystick::JoystickMessageManager& messages() { return section.getMessageManager(); }

    void axis(int joystick, const char* name, int value)
    {
        commands().postJoystickAxis(joystick, Backend::Joystick::findAxis(name), value);
        rest();
    }
    void down(int joystick, int button, bool isRepeat = false)
    {
        commands().postJoystickButtonDown(joystick, button, isRepeat);
        rest();
    }
    void up(int joystick, int button)
    {
        commands().postJoystickButtonUp(joystick, button);
        rest();
    }
};

/// An axis that sends a controller on channel 0 of the first output.
inline std::string controllerAxis(int joystick, const std::string& name, int controller)
{
    return "<Axis joystick='" + std::to_string(joystick) + "' axis='" + name +
           "'><Function midiEvent='Controller Change," + std::to_string(controller) +
           "' output='0' channel='0'/></Axis>";
}

inline std::string noteButton(int joystick, int button, const std::string& note, const std::string& more = "")
{
    return "<Button joystick='" + std::to_string(joystick) + "' button='" + std::to_string(button) + "'>" +
           playsNote(note, more) + "</Button>";
}
