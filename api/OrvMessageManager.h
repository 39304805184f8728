#pragma once

#include "api/OrvIF.h"

struct Message;

namespace Backend
{
class MessageManagerMaster;

/// No window, for operations that notify a window at the end.
extern ORV_API const WindowHandle NO_WINDOW;

/// The commands of the backend, for a host and the window. Not in a time slice or another real-time callback, because
/// an operation may allocate. `post` operations queue the command and return; any thread. `send` operations return when
/// it was executed; any thread but the backend thread, which would wait for itself. A command that resets waits for
/// time slices, and so does a `send` that follows it: while one is queued, the thread that plays them must not send.
/// Commands are executed in the order in which they were posted, by the operations of `OrvIF` of the same names, which
/// describe the arguments.
class ORV_API OrvMessageManager final
{
public:
    OrvMessageManager(MessageManagerMaster& managerMaster, OrvIF& backend) : master(managerMaster), orv(backend) {}

    OrvMessageManager(const OrvMessageManager&) = delete;
    OrvMessageManager& operator=(const OrvMessageManager&) = delete;

    /// The start, after `OrvIF::start`: reads settings and folders, gets the host's ports, then sends the values of
    /// controls. The end.
    void sendInitialize();
    void sendEndInitialize();
    void sendEnd();
    /// The program that a bank loads from now on, see `OrvIF::setProgramNumber`; before `sendInitialize`, that of the
    /// start.
    void postSetProgramNumber(int number);
    /// After `sendInitialize`.
    HostStart sendGetHostStart();

    /// The host's complete lists, see `OrvIF::setMidiInputPorts`.
    void sendSetMidiInputPorts(const MidiEngine::MidiInputPorts& ports);
    void postSetMidiInputPorts(const MidiEngine::MidiInputPorts& ports);
    void sendSetMidiOutputPorts(const MidiEngine::MidiOutputPorts& ports);
    void postSetMidiOutputPorts(const MidiEngine::MidiOutputPorts& ports);
    /// Makes the window's object, which the caller deletes before the backend ends; null if there is none. The flag is
    /// true if a plug-in host shows the window.
    Gui::OrvGuiIF* sendCreateOrvGui(bool isVstPlugin);
    /// Sends all data to the window.
    void postRefreshGui();
    void postRemoveGuiWindowHandle();

    /// Plays an event of the backend's own, not of an input port. Allocates only if the event has a pulse or comes from
    /// a control.
    void postPlayMidi(const MidiEngine::OrvMidiMessage& event);
    void postEnableMidiInput(int port, bool enabled);
    void postEnableMidiOutput(int port, bool enabled);

    /// A received MIDI event: the host sets its input to the port number.
    void postProcessMidiInputEvent(const MidiEngine::OrvMidiMessage& event);
    /// In its place for an event that the host has lost, see `OrvIF::playMidiInputEvent`.
    void postMidiInputEventLost(int port);
    /// For an input that lost its connection, see `OrvIF::releaseMidiInput`.
    void postReleaseMidiInput(int port);
    /// The user moves the control of that cell; ignored if there is none.
    void postChangeControl(const Cell& cell, std::int32_t value);
    /// Ends every note and waits until a time slice has done so; executed at once before the first slice, and on the
    /// thread of the slices. Any thread, the backend thread included.
    void sendReset();
    /// A hard reset, executed by the backend.
    void postResetOrv();
    /// See `OrvIF::loadProgram`; a path in UTF-8.
    void postLoadProgram(const std::string& path);
    void postLoadBank(const std::string& path);
    /// See `OrvIF::addSequencePreset`.
    void postAddSequencePreset(const std::string& name, const std::string& text);
    void postDeleteSequencePreset(const std::string& name);
    void postRenameSequencePreset(const std::string& name, const std::string& newName);
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
    /// For a host that stores its state. While the state is loaded, the host's slices must go on.
    std::string sendGetProgramAsString();
    void postLoadProgramFromString(const std::string& text, int number);
    /// See `OrvIF::saveState`.
    HostState sendSaveState();
    void postSetScreenState(const ScreenState& state);
    void postChangeProgram(const SelectType& select);
    void postChangeDefaultMidiOutput(const SelectType& select);
    /// A key of the computer as the window reports it, with the modifiers held; does not allocate for it.
    void postKeyDown(const Key& key, bool isRepeat);
    void postKeyUp(const Key& key);
    /// See `OrvIF::executeFunction`.
    void postExecuteFunction(const std::string& xml);
    /// The report of a joystick, 0 or 1: an axis 0 to 5 (X, Y, Z, U, V, R) with a value 0 to 65535, where up and right
    /// are high; a button 0 to 35, the last four the directions forward, back, left and right of its hat.
    void postJoystickAxis(int joystick, int axis, int value);
    void postJoystickButtonDown(int joystick, int button, bool isRepeat);
    void postJoystickButtonUp(int joystick, int button);
    void postToggleSystemPanel();
    void postChangeTempo(const RelativeFixedValue& value, bool notify);
    void postTapTempo();
    void postChangeMidiThru(const OnOffToggle& value, bool notify);
    void postSetTempoSource(int source, bool notify);
    /// An edit of the window, see `OrvIF::edit`. `gesture` is the number of the acknowledgement.
    void postEdit(const Edit& edit);
    void postUndo(std::uint32_t gesture);
    void postRedo(std::uint32_t gesture);
    /// For a host whose window edits programs.
    void postKeepDrafts(bool on);
    void postDiscardEdits();
    /// After a crash, see `OrvIF::keepRecovery` and the operation after it.
    void postKeepRecovery(const RecoveryPlan& plan);
    void postDiscardRecovered();
    /// For a window that learns an event, see `OrvIF::learn`; with no kinds it ends. `number` comes back with what was
    /// learned.
    void postLearn(const LearnKinds& kinds, std::uint32_t number);
    /// See `OrvIF::watchMidiInputs`.
    void postWatchMidiInputs(bool on);
    /// See `OrvIF::watchNotes`.
    void postWatchNotes(bool on);
    /// A change of the programs of a bank, see `OrvIF::editBank`. Of undo and redo, an empty path is the current bank.
    void postEditBank(const BankEdit& edit);
    void postUndoBank(const std::string& path);
    void postRedoBank(const std::string& path);
    /// The set list of the current bank, see `OrvIF::editSetList` and the operations after it.
    void postEditSetList(const SetListEdit& edit);
    void postUndoSetList();
    void postRedoSetList();
    void postEnableSetList(bool on);
    void postGoToSetEntry(int id);
    /// For a host that plays live; before `sendInitialize`.
    void postKeepSetPosition(bool on);
    void postMakeBank(const std::string& path, NewBank content, const WindowHandle& window);
    void postContinueLast(bool loadsIt);

    /// Settings: stored, and the window is notified of those that it did not change itself. Changes a setting:
    /// `postSetting(SETTING<Settings::ALWAYS_ON_TOP>(true))`. The operations below do the same.
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
