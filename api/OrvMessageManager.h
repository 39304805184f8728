#pragma once

#include "api/OrvIF.h"

struct Message;

namespace Backend
{
class MessageManagerMaster;

/// No window: for the operations that notify one when they are done.
extern ORV_API const WindowHandle NO_WINDOW;

/// The backend's command set: what a host and the window ask of it. Any thread but the backend thread, and not in a
/// time slice or another real-time callback: every operation allocates. `post` operations queue the command and return;
/// `send` operations return when it is done, and one that resets waits for time slices, so it is not for the thread
/// that plays them. Commands are executed in the order in which they were posted, by the operations of `OrvIF` of the
/// same names, which say what their arguments mean.
class ORV_API OrvMessageManager final
{
public:
    OrvMessageManager(MessageManagerMaster& managerMaster, OrvIF& backend) : master(managerMaster), orv(backend) {}

    OrvMessageManager(const OrvMessageManager&) = delete;
    OrvMessageManager& operator=(const OrvMessageManager&) = delete;

    /// The start, after `OrvIF::start`: what the settings and folders hold, then the host's ports, then the controls
    /// that send. The end.
    void sendInitialize();
    void sendEndInitialize();
    void sendEnd();
    /// The program that a bank loads from now on, see `OrvIF::setProgramNumber`; before `sendInitialize`, the one at
    /// the start.
    void postSetProgramNumber(int number);
    /// After `sendInitialize`.
    HostStart sendGetHostStart();

    /// The host's whole lists, see `OrvIF::setMidiInputPorts`.
    void sendSetMidiInputPorts(const MidiEngine::MidiInputPorts& ports);
    void postSetMidiInputPorts(const MidiEngine::MidiInputPorts& ports);
    void sendSetMidiOutputPorts(const MidiEngine::MidiOutputPorts& ports);
    void postSetMidiOutputPorts(const MidiEngine::MidiOutputPorts& ports);
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
    /// For an input that lost its connection, see `OrvIF::releaseMidiInput`.
    void postReleaseMidiInput(int port);
    /// The user moves the control of that cell; without one there nothing happens.
    void postChangeControl(const Cell& cell, std::int32_t value);
    /// Ends every note and waits until a time slice has done so; at once before the first slice, and on the thread that
    /// plays slices. Any thread, the backend thread too.
    void sendReset();
    /// A hard reset of everything, by the backend.
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
    void postImportVersion2Bank(const std::string& source, const std::string& target,
                                const WindowHandle& window = NO_WINDOW);
    void postImportVersion2Program(const std::string& source, const std::string& target,
                                   const WindowHandle& window = NO_WINDOW);
    void postImportVersion2Preset(const std::string& source, const std::string& name,
                                  const WindowHandle& window = NO_WINDOW);
    void postSaveToCurrentBank(int number, const WindowHandle& window = NO_WINDOW);
    void postSaveToBank(const std::string& path, const WindowHandle& window = NO_WINDOW);
    void postSaveToProgram(const std::string& path, const WindowHandle& window = NO_WINDOW);
    void postChangeBankSize(int size, const WindowHandle& window = NO_WINDOW);
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
    MessageManagerMaster& master;
    OrvIF& orv;
};
}  // namespace Backend
