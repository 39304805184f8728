#pragma once

#include <array>
#include <iosfwd>
#include <map>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "backend/messages/JoystickMessageManager.h"
#include "backend/model/JoystickConfiguration.h"
#include "backend/sections/Section.h"
#include "backend/sections/computerinput/ButtonEvent.h"
#include "backend/sections/joystick/JoystickEngine.h"
#include "platform/Export.h"

namespace Backend::Joystick
{
/// What moved an axis or pressed a button: the device, or the controls of the window.
enum class Source { joystick, gui };

/// The bindings of the joysticks: reads and writes the section, sends the events of an axis, executes the functions of
/// a button, and notifies the window of every change. The backend thread's, except the engine.
class ORV_API JoystickManager final : public Section<JoystickConfiguration, JoyButtonElementId>
{
public:
    JoystickManager(OrvIF& backend, MessageManagerMaster& master);

    const JoystickConfiguration& getConfiguration() const { return getContent(); }
    JoystickMessageManager& getMessageManager() override { return messageManager; }
    /// `JoystickEngine` says which threads may call it.
    JoystickEngine& getEngine() { return engine; }

    /// Writes all bound axes and buttons, whatever `ids` are, and which joysticks are disabled.
    void writeXml(std::ostream& out, int indent, std::span<const JoyButtonElementId> ids) const override;
    void savePreset(const std::string& name) { Section::savePreset(name, {}); }

    // Edits: every axis and button is always there; removing one unbinds it.

    std::vector<RecordId> getRecordIds() const override;
    std::string writeRecord(RecordId id) const override;
    void replaceRecord(RecordId id, const XmlElement& element) override;
    void addRecord(RecordId, const XmlElement&) override {}
    void removeRecord(RecordId id) override { replaceRecord(id, {}); }

    // Operations of joysticks. Those of a disabled joystick are ignored, those of the window are not.

    /// Sends the events of an axis.
    void setAxis(const JoyAxisElementId& id, AxisMode mode, int value, Source source);
    /// Where an axis of a new joystick stands.
    void axisFound(const JoyAxisElementId& id, int value);
    /// Executes the functions of a button. While held notes are kept, a button that is down keeps its functions until
    /// it is up.
    void pressButton(const JoyButtonElementId& id, ButtonEvent event, Source source);

    /// A joystick was plugged in or unplugged; the window shows it.
    void setDevice(int joystick, bool present, const std::string& name);

    bool isDisabled(int joystick) const;
    /// A joystick that is disabled releases its held buttons.
    void enableJoystick(int joystick, bool enabled);

    std::uint8_t getNoteSource() const override { return FunctionManagement::NoteSource::JOYSTICKS; }
    void getNoteSpans(std::vector<FunctionManagement::FunctionNoteSpan>& result) const override;

    // Operations of the window: each replaces the configuration of its id. With `notify` the window gets them back.

    void setButtonConfigurations(const std::vector<JoystickButtonConfiguration>& buttons, bool notify);
    void setAxisConfigurations(const std::vector<AxisConfiguration>& axes, bool notify);

    void notifyGui() const override;

private:
    /// Posts each report to the backend thread.
    class JoystickEngineListener final : public JoystickEngine::Listener
    {
    public:
        explicit JoystickEngineListener(JoystickMessageManager& postTo) : messages(postTo) {}
        void deviceChanged(int joystick, bool present, const std::string& name) override
        {
            messages.postDeviceChanged(joystick, present, name);
        }
        void axisFound(const JoyAxisElementId& id, int value) override { messages.postAxisFound(id, value); }
        void axisChanged(const JoyAxisElementId& id, int value) override { messages.postJoystickAxis(id, value); }
        void buttonDown(const JoyButtonElementId& id, bool repeat) override
        {
            messages.postJoystickButtonDown(id, repeat);
        }
        void buttonUp(const JoyButtonElementId& id) override { messages.postJoystickButtonUp(id); }

    private:
        JoystickMessageManager& messages;
    };

    FunctionManagement::FunctionFactory functionFactory() const;
    void showDevice(int joystick) const;
    std::string disabledNumbers() const;
    void setDisabled(const std::string& numbers);
    void releaseHeldButtons(int joystick);
    /// If the element lists disabled joysticks, the others are enabled.
    void readContent(const XmlElement& section, JoystickConfiguration& into) override;
    void updatePlaying() override { orv.updateZones(); }

    std::optional<JoystickButtonConfiguration> keptFunctions(const JoyButtonElementId& id, ButtonEvent event);

    std::array<std::optional<std::string>, JOYSTICKS> devices;       // the names of those that are plugged in
    std::set<JoyButtonElementId> held;                               // on the devices
    std::map<JoyButtonElementId, JoystickButtonConfiguration> kept;  // while notes are kept
    DownRuns downRuns;                                               // by joystick and button
    JoystickMessageManager messageManager;
    JoystickEngineListener listener;
    JoystickEngine engine;
};
}  // namespace Backend::Joystick
