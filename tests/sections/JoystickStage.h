#pragma once

#include <sstream>

#include "backend/sections/joystick/JoystickManager.h"
#include "backend/xml/XmlDocument.h"
#include "tests/stage/Stage.h"

/// The backend at rest, with joysticks that only report. Their manager may be called from here.
struct JoystickStage : Stage {
    Backend::Joystick::JoystickManager& joysticks() { return orv->getJoystickManager(); }
    Backend::Joystick::JoystickMessageManager& messages() { return orv->getJoystickMessageManager(); }

    void load(const std::string& content, const std::string& attributes = "")
    {
        const std::string section = "<Joystick " + attributes + ">" + content + "</Joystick>";
        joysticks().readXml(XmlDocument(section, XmlDocument::Source::text).getRoot());
        rest();
    }
    std::string written()
    {
        std::ostringstream out;
        joysticks().writeInProgram(out, 0);
        return out.str();
    }

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

/// A button that plays a note as long as it is held, there too.
inline std::string noteButton(int joystick, int button, const std::string& note, const std::string& more = "")
{
    const auto play = [&](const std::string& type) {
        return "<" + type + " output='0' channel='0' note='" + note + "'" + more + "/>";
    };
    return "<Button joystick='" + std::to_string(joystick) + "' button='" + std::to_string(button) +
           "'><Function><Down>" + play("MidiNoteOn") + "</Down><Up>" + play("MidiNoteOff") +
           "</Up></Function></Button>";
}
