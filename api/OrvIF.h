#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "api/HostState.h"
#include "api/RetroRecordReport.h"
#include "backend/model/MidiPort.h"
#include "backend/values/Key.h"
#include "backend/values/NoteToggle.h"
#include "backend/values/OnOffToggle.h"
#include "backend/values/OrvMidiMessage.h"
#include "backend/values/RelativeFixedValue.h"
#include "backend/values/SelectControlType.h"
#include "backend/values/SelectType.h"
#include "platform/Export.h"

class WindowHandle;

namespace WindowsLib
{
struct Rect;
}

namespace Gui
{
class OrvGuiIF;
}

namespace Backend
{
class Learning;
class MessageManagerMaster;
class OrvMessageManager;
class RegistrySettings;
struct Bank;
struct BankEdit;
enum class NewBank;
struct Edit;
struct LearnKinds;
struct PresetSection;
struct Program;
struct ScreenState;
struct SetListEdit;
struct WindowMove;

namespace ComputerInput
{
class ComputerInputManager;
class ComputerInputMessageManager;
class KeyConfiguration;
class KeyConfigurationMap;
}  // namespace ComputerInput
namespace Display
{
class DisplayListener;
class DisplayMessageManager;
}  // namespace Display

namespace Controls
{
class ControlManager;
class ControlMessageManager;
}  // namespace Controls

namespace Joystick
{
class JoystickManager;
class JoystickMessageManager;
struct JoystickConfiguration;
}  // namespace Joystick

namespace Layers
{
class LayerManager;
class LayerMessageManager;
}  // namespace Layers

namespace Oscillators
{
class OscManager;
class OscMessageManager;
}  // namespace Oscillators

namespace SequenceManagement
{
class SequencePresetManager;
}

namespace Zones
{
class ZoneManager;
class ZoneMessageManager;
}  // namespace Zones

namespace MidiInput
{
class MidiEventConfigurationMap;
class MidiInputManager;
class MidiInputMessageManager;
}  // namespace MidiInput

namespace MidiEngine
{
class MidiEngineMessageManager;
struct NoteActivity;
}  // namespace MidiEngine

namespace RetroRecord
{
class RetroRecordManager;
}

/// The backend as a host, the window and the backend's own parts use it. A host calls, in this order:
///
///     OrvFactory::makeOrv, start,
///     sendInitialize, sendSetMidiInputPorts, sendSetMidiOutputPorts, sendEndInitialize  (getOrvMessageManager),
///     playTimeSlice again and again on one thread,
///     and to end: inputs off, two slices, sendReset while slices still run, sendEnd, no more slices, stop, delete.
///
/// Each operation, or the line above a group of them, says where it may be called:
///
///     [host]       on the thread that created the backend; may wait.
///     [backend]    on the backend thread, which executes the commands of `OrvMessageManager`: a host posts the command
///                  instead. A debug build asserts it. While the backend thread does not run, any one thread may.
///     [any]        on any thread, but neither in a time slice nor in another real-time callback: it may allocate and
///                  take a lock for a moment.
///     [real-time]  on any thread, in real-time callbacks too: it neither allocates nor waits.
///
/// No operation fails: what is out of range, or names something that does not exist, changes nothing. Numbers count
/// from 0. Texts and paths are UTF-8. References that are returned are valid as long as the backend.
///
/// The order of the operations is part of the binary interface: new ones come last.
class ORV_API OrvIF
{
public:
    /// The longest time slice is one pulse shorter: a slice of that many pulses or more means that the clock jumped.
    static constexpr std::int32_t MAX_TIME_SLICE = 5000;
    /// The pulse at which a host's clock starts; lower ones are for events that were due before.
    static constexpr std::int32_t FIRST_PULSE = 50000000;

    virtual ~OrvIF() = default;

    /// [backend] Reads the settings and the lists of presets, copies the factory content for a new user, and starts the
    /// parts of the backend; sends the values of controls that are set to do so, once the ports are known; stops the
    /// parts and saves the settings. See `OrvMessageManager::sendInitialize` and the operations after it.
    virtual void initialize() = 0;
    virtual void endInitialize() = 0;
    virtual void end() = 0;

    /// [host] Start the backend thread; stop it after the commands that were posted before, and wait for its end.
    virtual void start() = 0;
    virtual void stop() = 0;

    /// [any] The window that is notified of changes; an empty handle for none.
    virtual WindowHandle getGuiWindowHandle() const = 0;
    virtual void setGuiWindowHandle(const WindowHandle& window) = 0;

    /// [real-time] The commands that a host, the window or a section posts.
    virtual OrvMessageManager& getOrvMessageManager() = 0;
    virtual MidiEngine::MidiEngineMessageManager& getMidiEngineMessageManager() = 0;
    virtual Controls::ControlMessageManager& getControlMessageManager() = 0;

    /// [backend] Stored in the settings: the position of the window, in logical pixels.
    virtual void setLastWindowPosition(const WindowsLib::Rect& position) = 0;

    /// [any] As `setGuiWindowHandle` with an empty handle.
    virtual void removeGuiWindowHandle() = 0;

    /// [backend] Stored in the settings, and the window is notified.
    virtual void setDockToBottomEdge(bool on) = 0;
    /// [backend] The bank that is loaded at the start; it is also loaded now. A file that is not a bank with a program
    /// is ignored.
    virtual void setDefaultBank(const std::string& path) = 0;
    /// [backend] Stored in the settings, and the window is notified: the divisor of mouse movements; below 1 counts as
    /// 1.
    virtual void setMouseSensitivity(int divisor) = 0;

    /// [backend] The host's complete lists, to be set at the start and after every change; the index of a port is its
    /// number, at most 128 are used.
    virtual void setMidiInputPorts(const MidiEngine::MidiInputPorts& ports) = 0;
    virtual void setMidiOutputPorts(const MidiEngine::MidiOutputPorts& ports) = 0;
    virtual MidiEngine::MidiInputPorts getMidiInputPorts() const = 0;
    virtual MidiEngine::MidiOutputPorts getMidiOutputPorts() const = 0;

    /// [backend] The user's choice. The backend's list of outputs changes only when the host sends the updated one.
    virtual void enableMidiInput(int port, bool enabled) = 0;
    virtual void enableMidiOutput(int port, bool enabled) = 0;

    /// [backend] Processes an event whose `getInput` is an enabled port; any other event is dropped. A host that plays
    /// live calls `playMidiInputEvent` instead.
    virtual void processMidiInputEvent(const MidiEngine::OrvMidiMessage& event) = 0;

    /// [backend] Replaces the current program by that of a file and keeps its number. A ".prg" file has one program, of
    /// any other file that of the number is loaded.
    /// A file without any program, here and below, is refused: nothing changes, and the window gets
    /// `GuiMessage::PROGRAM` with true.
    /// See docs/behaviour/programs-and-banks.md for what is ended, emptied and sent.
    virtual void loadProgram(const std::string& path) = 0;
    /// [backend] Loads the program of that number, from 0, of the current bank.
    virtual void changeProgram(int number) = 0;
    /// [backend] Loads a program from a text of `getProgramAsString`, under that number.
    virtual void loadProgramFromString(const std::string& text, int number) = 0;
    /// [backend] Makes the file the current bank and loads the program of the current number.
    virtual void loadBank(const std::string& path) = 0;

    /// [backend] Convert a file of version 2 to a new one, completely or not at all; nothing that plays is changed. The
    /// preset gets a name and is added to the list of its section. See `Version2::importBank`.
    virtual void importVersion2Bank(const std::string& source, const std::string& target,
                                    const WindowHandle& window) = 0;
    virtual void importVersion2Program(const std::string& source, const std::string& target,
                                       const WindowHandle& window) = 0;
    virtual void importVersion2Preset(const std::string& source, const std::string& name,
                                      const WindowHandle& window) = 0;

    /// [backend] Save the current program in the place of a program of the current bank, or of the one of the current
    /// number in another bank, which becomes the current one. After a save in the place of another program, the current
    /// program is loaded again as the bank has it. A file that has no such program, or, here and below, cannot be
    /// written completely, stays as it is. Files are written on the files thread: keys, MIDI and edits go on, while
    /// commands that use the bank or a file, including `end`, wait.
    ///
    /// `window`, here and with the imports, is the progress dialog, or none. It gets `GuiMessage::OPERATION_DONE` at
    /// the end, unless there was nothing to do: no path, no bank, a number below 0.
    virtual void saveToCurrentBank(int number, const WindowHandle& window) = 0;
    virtual void saveToBank(const std::string& path, const WindowHandle& window) = 0;
    /// [backend] Saves the current program as a file of its own.
    virtual void saveToProgram(const std::string& path, const WindowHandle& window) = 0;
    /// [backend] The current program as text, for a host that stores its state.
    virtual std::string getProgramAsString() = 0;

    /// [backend] Stored in the settings, and the window is notified.
    virtual void setAlwaysOnTop(bool on) = 0;
    virtual void setUseSkinBorder(bool on) = 0;

    /// [any] Request the window to show or hide a screen; ignored without a window. So do the operations of that kind
    /// below.
    virtual void showSystemPanel(bool on) = 0;
    virtual void toggleSystemPanel() = 0;

    /// [backend] Stored in the settings: the height of the display in logical pixels; whether its lines begin with
    /// their number, and with the time of day.
    virtual void setDisplayHeight(int pixels) = 0;
    virtual void setDisplayNumbers(bool on) = 0;
    virtual void setDisplayTimes(bool on) = 0;
    /// [backend] Stored in the settings, and the window is notified.
    virtual void setLargeDisplayFont(bool on) = 0;
    /// [backend] Stored in the settings: what the display shows.
    virtual void setDisplayMidiInputEvents(bool on) = 0;
    virtual void setDisplayMidiOutputEvents(bool on) = 0;

    /// [any]
    virtual void showDisplay(bool on) = 0;
    virtual void toggleDisplay() = 0;
    virtual void showHelp(bool on) = 0;
    virtual void toggleHelp() = 0;
    virtual void showOutput(bool on) = 0;
    virtual void toggleOutput() = 0;
    virtual void showCc(bool on) = 0;
    virtual void toggleCc() = 0;
    virtual void showLayer(bool on) = 0;
    virtual void toggleLayer() = 0;
    virtual void showZone(bool on) = 0;
    virtual void toggleZone() = 0;
    virtual void showSaveDialog() = 0;

    /// [any] Passes an event to the engine, which plays it in the next slice, or at its pulse if it has one.
    virtual void playMidi(const MidiEngine::OrvMidiMessage& event) = 0;
    /// [any] Passes an event of an input to the display.
    virtual void displayMidiInputEvent(const MidiEngine::OrvMidiMessage& event) = 0;

    /// The sections and their commands:
    /// [backend] the section itself, [real-time] a reference to its commands.
    virtual Oscillators::OscManager& getOscManager() = 0;
    virtual Oscillators::OscMessageManager& getOscMessageManager() = 0;
    /// [any]
    virtual void showOsc(bool on) = 0;
    virtual void toggleOsc() = 0;

    /// As `getOscManager` and `getOscMessageManager`.
    virtual Joystick::JoystickManager& getJoystickManager() = 0;
    virtual Joystick::JoystickMessageManager& getJoystickMessageManager() = 0;
    /// [any]
    virtual void showJoystick(bool on) = 0;
    virtual void toggleJoystick() = 0;
    /// [backend] A copy.
    virtual Joystick::JoystickConfiguration getJoystickConfiguration() const = 0;

    /// As `getOscManager` and `getOscMessageManager`.
    virtual ComputerInput::ComputerInputManager& getComputerInputManager() = 0;
    virtual ComputerInput::ComputerInputMessageManager& getComputerInputMessageManager() = 0;
    /// [any]
    virtual void showComputerInput(bool on) = 0;
    virtual void toggleComputerInput() = 0;
    /// [any] A key of the computer is pressed, repeats while it is held, and is released. They post.
    virtual void keyDown(const Key& key, bool isRepeat) = 0;
    virtual void keyUp(const Key& key) = 0;
    /// [backend] See `ComputerInputManager`.
    virtual void mergeKeyConfigurations(const std::vector<ComputerInput::KeyConfiguration>& configurations,
                                        bool notifyGui) = 0;
    /// [backend] A copy.
    virtual ComputerInput::KeyConfigurationMap getComputerInputConfiguration() const = 0;

    /// As `getOscManager` and `getOscMessageManager`.
    virtual MidiInput::MidiInputManager& getMidiInputManager() = 0;
    virtual MidiInput::MidiInputMessageManager& getMidiInputMessageManager() = 0;
    /// [any]
    virtual void showMidiInput(bool on) = 0;
    virtual void toggleMidiInput() = 0;
    /// [backend] A copy.
    virtual MidiInput::MidiEventConfigurationMap getMidiInputConfiguration() const = 0;

    /// As `getOscManager`.
    virtual Controls::ControlManager& getControlManager() = 0;
    /// [any]
    virtual void showControl(bool on) = 0;
    virtual void toggleControl() = 0;

    /// As `getOscManager` and `getOscMessageManager`.
    virtual Layers::LayerManager& getLayerManager() = 0;
    virtual Layers::LayerMessageManager& getLayerMessageManager() = 0;
    virtual Zones::ZoneManager& getZoneManager() = 0;
    virtual Zones::ZoneMessageManager& getZoneMessageManager() = 0;
    /// [real-time] The display's commands.
    virtual Display::DisplayMessageManager& getDisplayMessageManager() = 0;

    /// [backend] The current ones.
    virtual Bank& getBank() = 0;
    virtual Program& getProgram() = 0;

    /// The host's clock calls this: plays what is due from pulse `startPpq` up to, but not including, `endPpq`, at 480
    /// pulses per quarter note. Always on one thread, that of `MidiPlayer::getThreadId`, which may be a real-time
    /// callback: it does not allocate, and waits for other threads only while they swap a list. The slices follow each
    /// other without gaps; one of MAX_TIME_SLICE pulses or more plays nothing, one that ends before it starts plays
    /// what is late.
    virtual void playTimeSlice(std::int32_t startPpq, std::int32_t endPpq) = 0;

    /// [backend] Read from the settings store in `initialize`, written to it in `end`.
    virtual RegistrySettings& getRegistrySettings() = 0;

    /// [real-time] The backend thread.
    virtual MessageManagerMaster& getMessageManagerMaster() = 0;

    /// [backend] Beats per minute, 20 to 250.
    virtual int getTempo() const = 0;
    /// [backend] -1 for the internal clock, otherwise an input port.
    virtual int getTempoSource() const = 0;
    /// [backend] Ignored if the result is outside 20 to 250. With `notify` the window is notified.
    virtual void changeTempo(const RelativeFixedValue& value, bool notify) = 0;
    /// [backend] Ignored if `source` is neither -1 nor the index of an input port.
    virtual void setTempoSource(int source, bool notify) = 0;

    /// [backend] Determines again in which zones the inputs play.
    virtual void updateZones() = 0;

    /// [backend] Ends every note and sends the messages of a hard reset to the default output. Waits for a time slice.
    virtual void resetOrv() = 0;

    /// [backend] Removes programs from the end of the current bank's file, or appends empty ones. If the current
    /// program is removed, the last one that is left is loaded.
    virtual void changeBankSize(int size, const WindowHandle& window) = 0;
    /// [backend] Renames the current program, in memory only. A name that is not UTF-8 is ignored.
    virtual void changeProgramName(const std::string& name) = 0;

    /// [backend] The presets of sequences.
    virtual SequenceManagement::SequencePresetManager& getSequencePresetManager() = 0;
    /// [backend] Writes a sequence, given as text, as a preset, in place of one of that name.
    virtual void addSequencePreset(const std::string& name, const std::string& text) = 0;

    /// [backend] See `ControlManager`; the values of a control are 0 to 127, or 0 to 16383 for pitch bend.
    virtual void selectControl(const SelectControlType& select) = 0;
    virtual void changeControl(const SelectControlType& select, const RelativeFixedValue& value) = 0;
    virtual void sendControlData(const SelectControlType& select) = 0;

    /// [backend] The next, previous or given program of the bank; ignored if there is none.
    virtual void changeProgram(const SelectType& select) = 0;

    /// [backend] The next, previous or given output that is enabled and open becomes the default one.
    virtual void changeDefaultMidiOutput(const SelectType& select) = 0;

    /// [any] Requests the window to open the menu of programs.
    virtual void showProgramMenu() = 0;

    /// [backend] See `ZoneManager`; transposition in semitones.
    virtual void changeZoneTranspose(const SelectType& select, const RelativeFixedValue& value) = 0;
    virtual void selectZone(const SelectType& select) = 0;

    /// [any] Requests the window to open the menu of outputs.
    virtual void showDefaultMidiOutputMenu() = 0;

    /// [backend] Stored in the settings: which screens the window showed when it was closed.
    virtual void setScreenState(const ScreenState& state) = 0;
    virtual ScreenState getScreenState() const = 0;

    /// [real-time] The retrospective record.
    virtual RetroRecord::RetroRecordManager& getRetroRecordManager() = 0;
    /// [backend] Stored in the settings, and the window is notified: bytes for each output, 1000 to 200000000.
    virtual void setRetroRecordBufferSize(int bytes) = 0;
    virtual void enableRetroRecord(bool on) = 0;
    /// [backend] Stored in the settings, and the window is notified: whether held notes ring on when layers,
    /// oscillators or the program are replaced. A change ends all notes.
    virtual void setKeepNotes(bool on) = 0;

    /// [backend] Stored in the settings; with `notify` the window is notified.
    virtual void changeMidiThru(const OnOffToggle& value, bool notify) = 0;
    virtual void changeGlobalKeyboard(const OnOffToggle& value, bool notify) = 0;

    /// [backend] See `LayerManager`; transposition in semitones, velocity in MIDI steps.
    virtual void selectLayer(const SelectType& select) = 0;
    virtual void editLayer(const SelectType& select) = 0;
    virtual void changeLayerTranspose(const SelectType& select, const RelativeFixedValue& value) = 0;
    virtual void changeLayerVelocity(const SelectType& select, const RelativeFixedValue& value) = 0;
    virtual void changeLayerMute(const SelectType& select, const OnOffToggle& value) = 0;
    virtual void changeLayerMono(const SelectType& select, const OnOffToggle& value) = 0;
    virtual void changeLayerSolo(const SelectType& select, const OnOffToggle& value) = 0;
    virtual void changeLayerNoteToggle(const SelectType& select, const NoteToggle& value) = 0;

    /// [any] Passes an event of an output to the display. While there is a window or a display listener, the engine
    /// passes played events to it by itself.
    virtual void displayMidiOutputEvent(const MidiEngine::OrvMidiMessage& event) = 0;

    /// [backend] Stored in the settings, for simple programs: velocity 0 to 127, channel 0 to 15.
    virtual void setLiteVelocity(int velocity) = 0;
    virtual void setLiteChannel(int channel) = 0;
    virtual void setLiteStackNotes(bool on) = 0;

    /// [backend] Stored in the settings, and the window is notified.
    virtual void setClickZoneChannelTranspose(bool on) = 0;

    /// [any] True if every worker has completely handled all messages posted to it, or waits in a reset for a time
    /// slice. Only a post, a slice or a `send` ends that state.
    virtual bool isAtRest() const = 0;

    /// [real-time] True while a reset waits for a time slice.
    virtual bool isResetWaiting() const = 0;

    /// [any] Requests the window to set the cursor into a control.
    virtual void setWidgetFocus(const SelectControlType& select) = 0;
    /// [any] Seeds random numbers, for a host that needs the same ones each time: they depend on the seed alone.
    virtual void setRandomSeed(std::uint32_t seed) = 0;

    /// [backend] Makes a function of its element, `<ChangeTempo value="+10"/>`, and executes it; any other text is
    /// ignored, see `FunctionText`.
    virtual void executeFunction(const std::string& xml) = 0;

    /// [any] Requests the window to move, in pixels or along the whole screen.
    virtual void moveWindow(const WindowMove& move) = 0;

    /// [host] From now until `stopJoysticks`, or `stop`, the joysticks of the system are read, on a thread of their
    /// own; at the end held buttons are released. A host that does not call it may report joysticks itself, see
    /// `OrvMessageManager::postJoystickAxis`.
    virtual void startJoysticks() = 0;
    virtual void stopJoysticks() = 0;

    /// [backend] Makes the window's object, which the caller deletes; see `OrvMessageManager::sendCreateOrvGui`. Null
    /// if the library has no window.
    virtual Gui::OrvGuiIF* createOrvGui(bool isVstPlugin) = 0;
    /// [backend] Sends all data to the window. For a window that was just opened.
    virtual void refreshGui() = 0;

    /// [backend] Writes the settings, as `end` does, and returns what else a host must store to restore the state.
    virtual HostState saveState() = 0;

    /// [backend] Removes a sequence preset and its file. The window is notified of this, and of `addSequencePreset`, by
    /// GuiMessage::SEQUENCE_PRESETS.
    virtual void deleteSequencePreset(const std::string& name) = 0;
    /// [any] Saves and empties the retrospective record: that of an output becomes the MIDI file "<stem>_<output
    /// name>.mid". The window is notified of the result.
    virtual void saveRetroRecord(const std::string& stem) = 0;

    /// [backend] Loads a preset of that section. A preset that is missing, cannot be read or belongs to another section
    /// changes nothing.
    virtual void loadPreset(const PresetSection& section, const std::string& name) = 0;

    /// [backend] See `OscManager`; speed in pulses per cycle, 40 to 30720.
    virtual void selectOsc(const SelectType& select) = 0;
    virtual void changeOscPlaying(const SelectType& select, const OnOffToggle& value) = 0;
    virtual void changeOscSpeed(const SelectType& select, const RelativeFixedValue& value) = 0;
    /// [backend] The position of a knob, 0 to 127, from the slowest speed to the fastest.
    virtual void setOscSpeedFromMidi(const SelectType& select, std::int32_t value) = 0;

    /// [any] As `saveRetroRecord`, but `listener` gets the result, on the recorder's thread, in place of the window.
    virtual void saveRetroRecordFor(const std::string& stem, RetroRecord::SaveListener listener) = 0;

    /// [any] Receives the text of the display, in place of a window; null for none.
    /// It must exist until it is replaced or the backend has ended.
    /// `updateDisplayListener` passes new text to it, `resendDisplayText` the whole text.
    virtual void setDisplayListener(Display::DisplayListener* listener) = 0;
    virtual void updateDisplayListener() = 0;
    virtual void resendDisplayText() = 0;

    /// [host] Before `start`: the backend thread and the engine's command thread will request real-time priority, below
    /// that of the clock. `realTimeAnswer` has the result.
    virtual void requestRealTime() = 0;

    /// [backend] What a host gets from the settings and from what was loaded at the start.
    virtual HostStart getHostStart() const = 0;

    /// [backend] The number, from 0, of the program that the next bank loads, including the one at the start. Nothing
    /// is loaded now.
    virtual void setProgramNumber(int number) = 0;

    /// [backend] Plays the note-offs of the notes that this input holds, as if their keys were released.
    virtual void releaseMidiInput(int port) = 0;

    /// [backend] An event of this input that was to be posted is lost, see `playMidiInputEvent`.
    virtual void midiInputEventLost(int port) = 0;

    /// [any] The longest time, in nanoseconds, for which a command held the lock that the slices need, or a slice
    /// waited for it, since the last call.
    virtual std::int64_t takeLongestHold() = 0;

    /// [real-time] An event of this input is posted with `OrvMessageManager::postProcessMidiInputEvent` without having
    /// been passed to `playMidiInputEvent`, as by a host that cannot play now. An input below 0 is ignored.
    virtual void deferMidiInputEvent(int input) = 0;

    /// [real-time] Plays an event of an input at once, as the next slice would play it at its first pulse: through
    /// translations, zones and layers, to `MidiPlayer::playMidi`, on the calling thread. Before it returns it may wait
    /// for the lock of the slices. One caller at a time for each input; outside a slice.
    ///
    /// False if that is not possible: the event executes a function, the input is disabled, no slice was played yet,
    /// the engine rests and a layer has an arpeggio, or an earlier event of the input has not been played. Then the
    /// caller posts it with `OrvMessageManager::postProcessMidiInputEvent`, or, if it lost the event,
    /// `OrvMessageManager::postMidiInputEventLost`: one post for each event that got false, in the order of the events.
    /// Until all that they made has been played, every later event of that input gets false too.
    virtual bool playMidiInputEvent(const MidiEngine::OrvMidiMessage& event) = 0;

    /// [backend] A beat is tapped now: from the second of several taps in time, the tempo follows them. Ignored while
    /// the tempo comes from an input.
    virtual void tapTempo() = 0;

    /// Between two slices, on their thread. True if there is nothing to play until an event or a command comes. Then
    /// the next slice may come later than usual: `MidiPlayer::wakeClock` is called as soon as there is something to
    /// play, or an input played.
    virtual bool tryRest() = 0;

    /// [backend] An edit of the window: a step of the history of the current program, which marks it as edited. What it
    /// does not name stays as functions may have changed it meanwhile. The window gets GuiMessage::EDIT_DONE, also if
    /// nothing was changed.
    virtual void edit(const Edit& edit) = 0;
    /// [backend] Restores the fields that the last edit changed, or sets them again; then the window gets
    /// GuiMessage::EDIT_DONE with that number.
    virtual void undo(std::uint32_t gesture) = 0;
    virtual void redo(std::uint32_t gesture) = 0;
    /// [backend] Whether an edited program that another one follows is kept as a draft, with its history; off at the
    /// start. While it is on, saving never loads a program.
    virtual void keepDrafts(bool on) = 0;
    /// [backend] The edits of the current program count as lost: it has no history, and no draft will be kept.
    virtual void discardEdits() = 0;
    /// [backend] From now on until `end`, what is not saved is in a file of the settings folder within two seconds:
    /// bank, number and text of the program, drafts, the latest steps of their histories, open screens. Threads that
    /// play never wait for it. `end` removes the file. A file that a process left without `end` is restored first, see
    /// `RecoveryPlan`; the window gets GuiMessage::RECOVERY, now or when it opens. For a host that keeps drafts, once,
    /// after its files were loaded.
    virtual void keepRecovery(const RecoveryPlan& plan) = 0;
    /// [backend] Back to what is saved, of all programs: there are no drafts and no histories any more, and the current
    /// program is loaded again. Ignored if nothing was restored.
    virtual void discardRecovered() = 0;

    /// [backend] A change of the programs of a bank by the user, a step of the history of that bank. The file is
    /// replaced as a whole on the files thread. In the current bank the current program keeps playing under its new
    /// number, with its edits, and drafts follow their programs; if the current program is removed, that in its place
    /// is loaded. Then the window gets GuiMessage::BANK_EDIT_DONE, also if nothing could be changed.
    virtual void editBank(const BankEdit& edit) = 0;
    /// [backend] Undoes the last change of that bank (empty: the current one), or does it again. A program that was
    /// removed comes back with its edits.
    virtual void undoBank(const std::string& path) = 0;
    virtual void redoBank(const std::string& path) = 0;
    /// [backend] The next event of these kinds, from any input, is not played but sent to the window once, with this
    /// number (GuiMessage::LEARNED); no kinds end it, and so does the window's close. A learned press is swallowed with
    /// its release; everything else plays on. See docs/behaviour/learning.md.
    virtual void learn(const LearnKinds& kinds, std::uint32_t number) = 0;
    virtual Learning& getLearning() = 0;
    /// [backend] While it is on, the last event of each kind that MIDI inputs receive is kept, at most 200. It begins
    /// with none; the window's close ends it.
    virtual void watchMidiInputs(bool on) = 0;
    /// [any] Sends them to the window (GuiMessage::RECEIVED_EVENTS) if one has come since the last call.
    virtual void sendReceivedEvents() = 0;

    /// [backend] A change of the set list of the current bank, a step of its history since it was loaded. It is written
    /// beside the bank ("Gig.set" for "Gig.bnk") on the files thread; no command waits for that. The window gets
    /// GuiMessage::BANK_EDIT_DONE with the path of that file, and, after each change, GuiMessage::SET_LIST. A file that
    /// is there but no set list is never replaced; then there is nothing to edit. See
    /// docs/behaviour/programs-and-banks.md.
    virtual void editSetList(const SetListEdit& edit) = 0;
    /// [backend] Undoes the last change of the set list, or does it again.
    virtual void undoSetList() = 0;
    virtual void redoSetList() = 0;
    /// [backend] Whether the next and the previous program are those of the set list. It is stored with the list.
    virtual void enableSetList(bool on) = 0;
    /// [backend] Loads the program of the entry with that id, which becomes the current entry. Ignored if it is
    /// missing.
    virtual void goToSetEntry(int id) = 0;
    /// [backend] Whether the current entry is read and written with the set list, for a host that plays live. Off at
    /// the start: then each bank begins before the first entry. Before `initialize`, it applies to the bank of the
    /// start.
    virtual void keepSetPosition(bool on) = 0;
    /// [backend] Stored in the settings, and the window is notified: the input whose MIDI program changes, with bank
    /// select, load programs of the bank, -1 for all, -2 for none; and the channel, 0 to 15, -1 for all. Such events
    /// are not translated. The number of the program is (MSB x 128 + LSB) x 128 + program.
    virtual void setProgramChangeInput(int input) = 0;
    virtual void setProgramChangeChannel(int channel) = 0;
    /// [backend] While it is on, the notes at zones and layers are counted, beginning with none; the window's close
    /// ends it.
    virtual void watchNotes(bool on) = 0;
    /// The notes at zones and layers, those included that were played and ended since the last call. False, with
    /// `activity` as it was, if nothing has changed. One thread, which is not that of the slices; never waits.
    virtual bool takeNoteActivity(MidiEngine::NoteActivity& activity) = 0;
    /// [backend] Gives a sequence preset and its file another name. Nothing happens if there is none, or if a preset
    /// has the new name already. The window is notified as by `addSequencePreset`.
    virtual void renameSequencePreset(const std::string& name, const std::string& newName) = 0;
    /// [any] Sends to the window which step of its sequence each layer plays (GuiMessage::SEQUENCE_STEPS).
    virtual void sendSequenceSteps() = 0;
    /// [backend] Writes a new bank, which becomes the current one. A copy of the current bank replaces a file that is
    /// there; the current program plays on, and its edits and the drafts go along. Of an empty bank its only program is
    /// loaded; a file that is there stays, and nothing is changed. `window` as of `saveToCurrentBank`.
    virtual void makeBank(const std::string& path, NewBank content, const WindowHandle& window) = 0;
    /// [backend] Before `initialize`: stores at the end which bank and program are the current ones. With `loadsIt`,
    /// `initialize` loads those of the last end, if the settings say so and the bank can be loaded.
    virtual void continueLast(bool loadsIt) = 0;
    /// [host] Before `start`: this host executes the settings of the synthesizer, JACK and the clocks. Without it the
    /// setup of the window does not show them.
    virtual void useHostSettings(HostSettingsUse use) = 0;
    /// [backend] One of them was changed: passes them all to that host.
    virtual void passHostSettings() = 0;
};
}  // namespace Backend
