#pragma once

#include "api/OrvIF.h"
#include "backend/messages/MessageManager.h"

namespace Backend
{
/// The backend's command set: what the outside world asks of it. `post` commands queue and return; `send` commands
/// wait until the command is done, and must not be called on the backend thread. Any other thread.
class ORV_API OrvMessageManager final : public MessageManager
{
public:
    /// `handler` executes what was posted, on the backend thread.
    OrvMessageManager(MessageManagerMaster& managerMaster, OrvIF& backend, Handler handler);

    void sendInitialize();
    void sendEnd();
    void sendSetMidiInputPorts(const MidiEngine::MidiInputPorts& ports);
    void postSetMidiInputPorts(const MidiEngine::MidiInputPorts& ports);
    void sendSetMidiOutputPorts(const MidiEngine::MidiOutputPorts& ports);
    void postSetMidiOutputPorts(const MidiEngine::MidiOutputPorts& ports);
    void sendEndInitialize();
    /// Makes the window's object, which the caller deletes before the backend ends; null where there is none to make.
    /// The flag says that a host of plug-ins shows the window.
    Gui::OrvGuiIF* sendCreateOrvGui(bool isVstPlugin);
    /// Sends the window all that it shows.
    void postRefreshGui();
    void postRemoveGuiWindowHandle();

    /// An event as the backend's own, past the input ports. Without an allocation unless it is timed or comes from a
    /// control.
    void postPlayMidi(const MidiEngine::OrvMidiMessage& event);
    void postEnableMidiInput(int port, bool enabled);
    void postEnableMidiOutput(int port, bool enabled);

    /// Incoming MIDI: the host sets the event's input to the port number.
    void postProcessMidiInputEvent(const MidiEngine::OrvMidiMessage& event);
    /// The user moves the control of that cell; without one there nothing happens.
    void postChangeControl(const Cell& cell, std::int32_t value);
    void postResetOrv();
    /// See `OrvIF::loadProgram`; a path in UTF-8.
    void postLoadProgram(const std::string& path);
    void postLoadBank(const std::string& path);
    /// See `OrvIF::addSequencePreset`.
    void postAddSequencePreset(const std::string& name, const std::string& text);
    void postDeleteSequencePreset(const std::string& name);
    /// Saves the retrospective record, see `OrvIF::saveRetroRecord`.
    void postSaveRetroRecord(const std::string& stem);
    void postSetDefaultBank(const std::string& path);
    /// A save or an import notifies its progress dialog, `window`, when it is done; see `OrvIF::saveToCurrentBank`.
    void postImportVersion2Bank(const std::string& source, const std::string& target, const WindowHandle& window);
    void postImportVersion2Program(const std::string& source, const std::string& target, const WindowHandle& window);
    void postImportVersion2Preset(const std::string& source, const std::string& name, const WindowHandle& window);
    void postSaveToCurrentBank(int number, const WindowHandle& window);
    void postSaveToBank(const std::string& path, const WindowHandle& window);
    void postSaveToProgram(const std::string& path, const WindowHandle& window);
    void postChangeBankSize(int size, const WindowHandle& window);
    void postChangeProgramName(const std::string& name);
    /// The state of a host. While the one is loaded the host's slices must go on.
    std::string sendGetProgramAsString();
    void postLoadProgramFromString(const std::string& text, int number);
    /// See `OrvIF::saveState`.
    HostState sendSaveState();
    void postSetScreenState(const ScreenState& state);
    void postChangeProgram(const SelectType& select);
    void postChangeDefaultMidiOutput(const SelectType& select);
    /// A key of the computer as the window reports it, with the modifiers held; without an allocation for it.
    void postKeyDown(const Key& key, bool isRepeat);
    void postKeyUp(const Key& key);
    /// See `OrvIF::executeFunction`.
    void postExecuteFunction(const std::string& xml);
    /// What a joystick, 0 or 1, reports: an axis 0 to 5 (X, Y, Z, U, V, R) at a value 0 to 65535, up and right being
    /// high; a button 0 to 35, the last four the directions forward, back, left and right of its hat.
    void postJoystickAxis(int joystick, int axis, int value);
    void postJoystickButtonDown(int joystick, int button, bool isRepeat);
    void postJoystickButtonUp(int joystick, int button);
    void postToggleSystemPanel();
    void postChangeTempo(const RelativeFixedValue& value, bool notify);
    void postChangeMidiThru(const OnOffToggle& value, bool notify);
    void postSetTempoSource(int source, bool notify);

    /// Settings: stored, and the window is notified of those that it did not change itself.
    /// Changes a setting: `postSetting(SETTING<Settings::ALWAYS_ON_TOP>(true))`. Those below are of the same kind.
    void postSetting(Message setting);
    void postSetLastWindowPosition(const WindowsLib::Rect& position);
    void postSetDockToBottomEdge(bool on);
    void postSetDisplayHeight(int pixels);
    void postSetDisplayNumbers(bool on);
    void postSetLargeDisplayFont(bool on);
    void postSetDisplayMidiInputEvents(bool on);
    void postSetDisplayMidiOutputEvents(bool on);
    /// Bytes for each output, 1000 to 200000000.
    void postSetRetroRecordBufferSize(int bytes);
    void postEnableRetroRecord(bool on);
    void postSetAlwaysOnTop(bool on);
    void postSetUseSkinBorder(bool on);
    void postChangeGlobalKeyboard(const OnOffToggle& value, bool notify);
    void postSetMouseSensitivity(int divisor);
    void postSetLiteVelocity(int velocity);
    void postSetLiteChannel(int channel);
    void postSetLiteStackNotes(bool on);
    void postSetClickZoneChannelTranspose(bool on);

private:
    OrvIF& orv;
};
}  // namespace Backend
