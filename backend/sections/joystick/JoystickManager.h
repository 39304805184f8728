#pragma once

#include <bitset>
#include <iosfwd>
#include <set>
#include <string>
#include <vector>

#include "backend/files/PresetManager.h"
#include "backend/messages/JoystickMessageManager.h"
#include "backend/model/FunctionNoteSpan.h"
#include "backend/model/JoystickConfiguration.h"
#include "backend/sections/computerinput/ButtonEvent.h"
#include "backend/sections/joystick/JoystickEngine.h"
#include "platform/Export.h"

namespace Backend
{
class OrvIF;
}

namespace Backend::Joystick
{
/// Who moves an axis or presses a button: the device, or the window's grids and buttons.
enum class Source { joystick, gui };

/// The authority over what the joysticks do: it reads and writes the program's section, sends what an axis is bound to
/// and runs what a button is bound to, and tells the window of every change. The backend thread's own, but for the
/// engine.
class ORV_API JoystickManager
{
public:
    JoystickManager(OrvIF& backend, MessageManagerMaster& master);

    const JoystickConfiguration& getConfiguration() const { return configuration; }
    JoystickMessageManager& getMessageManager() { return messageManager; }
    PresetManager& getPresets() { return presets; }
    /// See there for who may call it.
    JoystickEngine& getEngine() { return engine; }

    // Files

    /// A "Joystick" element: what it holds replaces all there is, or with "merge" takes the places of its ids. Where it
    /// lists disabled joysticks, the others are enabled. An element of another name is ignored.
    void readXml(const XmlElement& section);
    /// The element, one tag a line behind `indent` TABs, with the axes and buttons that are bound. Which joysticks are
    /// disabled is not written.
    void writeXml(std::ostream& out, int indent) const;

    /// A preset that is not there changes nothing.
    void loadPreset(const std::string& name);
    void savePreset(const std::string& name);
    void renamePreset(const std::string& name, const std::string& newName);
    void deletePreset(const std::string& name);

    /// Nothing is bound.
    void setDefaults();

    // Playing. What a disabled joystick does is ignored; the window's grids and buttons go on.

    /// Sends the events of an axis.
    void setAxis(const JoyAxisElementId& id, AxisMode mode, int value, Source source);
    /// Runs the functions of a button.
    void pressButton(const JoyButtonElementId& id, ButtonEvent event, Source source);

    bool isDisabled(int joystick) const;
    /// A joystick that is disabled releases the buttons that it holds.
    void enableJoystick(int joystick, bool enabled);

    /// Appends what every function of every button plays in a zone.
    void getNoteSpans(std::vector<FunctionManagement::FunctionNoteSpan>& result) const;

    // From the window: each takes the place of the one of its id. With `notifyGui` the window gets them back.

    void setButtonConfigurations(const std::vector<JoystickButtonConfiguration>& buttons, bool notifyGui);
    void setAxisConfigurations(const std::vector<AxisConfiguration>& axes, bool notifyGui);

private:
    /// Posts each report to the backend thread.
    class JoystickEngineListener final : public JoystickEngine::Listener
    {
    public:
        explicit JoystickEngineListener(JoystickMessageManager& postTo) : messages(postTo) {}
        void axisChanged(const JoyAxisElementId& id, int value) override { messages.postJoystickAxis(id, value); }
        void buttonDown(const JoyButtonElementId& id, bool repeat) override
        {
            messages.postJoystickButtonDown(id, repeat);
        }
        void buttonUp(const JoyButtonElementId& id) override { messages.postJoystickButtonUp(id); }

    private:
        JoystickMessageManager& messages;
    };

    void readDisabledInputs(const XmlElement& section);
    void releaseHeldButtons(int joystick);
    void publish();
    void tellGui(Message message) const;

    OrvIF& orv;
    std::bitset<JOYSTICKS> disabled;
    std::set<JoyButtonElementId> held;  // on the devices
    JoystickConfiguration configuration;
    JoystickMessageManager messageManager;
    JoystickEngineListener listener;
    PresetManager presets;
    JoystickEngine engine;
};
}  // namespace Backend::Joystick
