#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "api/HostState.h"
#include "backend/model/MidiPort.h"
#include "backend/model/ScreenState.h"
#include "backend/values/Key.h"
#include "backend/values/NoteToggle.h"
#include "backend/values/OnOffToggle.h"
#include "backend/values/OrvMidiMessage.h"
#include "backend/values/RelativeFixedValue.h"
#include "backend/values/SelectControlType.h"
#include "backend/values/SelectType.h"
#include "platform/Export.h"
#include "platform/Rect.h"
#include "platform/WindowHandle.h"

namespace Gui
{
class OrvGuiIF;
}

namespace Backend
{
class MessageManagerMaster;
class OrvMessageManager;
class RegistrySettings;
struct Bank;
struct PresetSection;
struct Program;
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
class DisplayMessageManager;
}

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
}

namespace RetroRecord
{
class RetroRecordManager;
}

/// The backend as a host, the GUI and the backend's own parts see it. A host calls, in this order:
///
///     OrvFactory::createOrv, start,
///     sendInitialize, sendSetMidiInputPorts, sendSetMidiOutputPorts, sendEndInitialize  (getOrvMessageManager),
///     playTimeSlice again and again on one thread,
///     and to end: inputs off, two slices, sendReset (getMidiEngineMessageManager), sendEnd while slices still run,
///     no more slices, stop, delete.
///
/// Operations run on the backend thread, where the message managers call them, unless they say otherwise. None fails:
/// what is out of range is ignored.
class ORV_API OrvIF
{
public:
    virtual ~OrvIF() = default;

    /// Reads the settings and the lists of presets, copies the factory content for a new user, and starts what the
    /// backend consists of. Reached through `OrvMessageManager::sendInitialize`.
    virtual void initialize() = 0;
    /// Sends the controls that are to send when a program is loaded. The ports are there by now.
    virtual void endInitialize() = 0;
    /// Stops it again and saves the settings.
    virtual void end() = 0;

    /// Starts and stops the backend thread. The host's thread.
    virtual void start() = 0;
    virtual void stop() = 0;

    /// The window that is notified of changes; empty if there is none. Any thread.
    virtual WindowHandle getGuiWindowHandle() const = 0;
    virtual void setGuiWindowHandle(const WindowHandle& window) = 0;

    /// Any thread; they live as long as the backend.
    virtual OrvMessageManager& getOrvMessageManager() = 0;
    virtual MidiEngine::MidiEngineMessageManager& getMidiEngineMessageManager() = 0;
    virtual Controls::ControlMessageManager& getControlMessageManager() = 0;

    /// Kept in the settings: where the window was.
    virtual void setLastWindowPosition(const WindowsLib::Rect& position) = 0;

    /// Any thread.
    virtual void removeGuiWindowHandle() = 0;

    /// Kept in the settings, and the GUI is notified.
    virtual void setDockToBottomEdge(bool on) = 0;
    /// The bank that is loaded at the start; it is loaded now too. A file that is no bank with a program changes
    /// nothing.
    virtual void setDefaultBank(const std::string& path) = 0;
    /// Kept in the settings, and the GUI is notified.
    virtual void setMouseSensitivity(int divisor) = 0;

    /// The host's whole list, at the start and whenever something changed.
    virtual void setMidiInputPorts(const MidiEngine::MidiInputPorts& ports) = 0;
    virtual void setMidiOutputPorts(const MidiEngine::MidiOutputPorts& ports) = 0;
    virtual MidiEngine::MidiInputPorts getMidiInputPorts() const = 0;
    virtual MidiEngine::MidiOutputPorts getMidiOutputPorts() const = 0;

    /// The user's choice. The backend's list of outputs changes only when the host sends the refreshed one.
    virtual void enableMidiInput(int port, bool enabled) = 0;
    virtual void enableMidiOutput(int port, bool enabled) = 0;

    /// Takes an event whose `getInput` is an enabled port; any other is dropped.
    virtual void processMidiInputEvent(const MidiEngine::OrvMidiMessage& event) = 0;

    /// Replaces the current program by the one of a file, keeping its number; of a ".prg" file its only one, of any
    /// other the one of that number. A file without any program, here and below, is refused: everything stays, and the
    /// window gets `GuiMessage::PROGRAM` with true. Otherwise every note is ended; what the program lacks is emptied;
    /// where the file has no program of that number, the sections stay and the program has no name. Last, the controls
    /// that are to send then do.
    virtual void loadProgram(const std::string& path) = 0;
    /// The program of that number, from 0, of the current bank.
    virtual void changeProgram(int number) = 0;
    /// The program of a text that `getProgramAsString` gave, under that number.
    virtual void loadProgramFromString(const std::string& text, int number) = 0;
    /// Makes the file the current bank and loads the program of the current number.
    virtual void loadBank(const std::string& path) = 0;

    /// Make a new file of one of version 2, whole or not at all; nothing that plays is touched. The preset gets a name
    /// and enters the list of the section that its file is for. See `Version2::importBank`.
    virtual void importVersion2Bank(const std::string& source, const std::string& target,
                                    const WindowHandle& window) = 0;
    virtual void importVersion2Program(const std::string& source, const std::string& target,
                                       const WindowHandle& window) = 0;
    virtual void importVersion2Preset(const std::string& source, const std::string& name,
                                      const WindowHandle& window) = 0;

    /// Put the current program in the place of one of the current bank, or of the one of the current number in another
    /// bank, which becomes the current one. A program that is saved in the place of another is then loaded again as the
    /// bank has it. A bank without such a program stays as it is; so does, here and below, any file that could not be
    /// written in full. Files are written on a thread of their own: keys, MIDI and edits go on, while commands that use
    /// the bank or a file, `end` among them, wait.
    ///
    /// `window`, here and with the imports, is the progress dialog, or none. It gets `GuiMessage::OPERATION_DONE` when
    /// all is done or has failed, unless there was nothing to do: no path, no bank, a number below 0.
    virtual void saveToCurrentBank(int number, const WindowHandle& window) = 0;
    virtual void saveToBank(const std::string& path, const WindowHandle& window) = 0;
    /// Writes the current program as a file of its own.
    virtual void saveToProgram(const std::string& path, const WindowHandle& window) = 0;
    /// The current program as a text, for a host that keeps its state.
    virtual std::string getProgramAsString() = 0;

    /// Kept in the settings, and the GUI is notified.
    virtual void setAlwaysOnTop(bool on) = 0;
    virtual void setUseSkinBorder(bool on) = 0;

    /// Asks the window to show or hide a screen; nothing without a window.
    virtual void showSystemPanel(bool on) = 0;
    virtual void toggleSystemPanel() = 0;

    /// Kept in the settings, in pixels.
    virtual void setDisplayHeight(int pixels) = 0;
    /// Kept in the settings: whether the display numbers its lines.
    virtual void setDisplayNumbers(bool on) = 0;
    /// Kept in the settings, and the GUI is notified.
    virtual void setLargeDisplayFont(bool on) = 0;
    /// Kept in the settings: what the display shows.
    virtual void setDisplayMidiInputEvents(bool on) = 0;
    virtual void setDisplayMidiOutputEvents(bool on) = 0;

    /// Asks the window to show or hide a screen; nothing without a window.
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

    /// Gives an event to the engine.
    virtual void playMidi(const MidiEngine::OrvMidiMessage& event) = 0;
    /// Gives an event of an input to the display. Any thread but a time slice.
    virtual void displayMidiInputEvent(const MidiEngine::OrvMidiMessage& event) = 0;

    virtual Oscillators::OscManager& getOscManager() = 0;
    /// Any thread; they live as long as the backend.
    virtual Oscillators::OscMessageManager& getOscMessageManager() = 0;
    virtual void showOsc(bool on) = 0;
    virtual void toggleOsc() = 0;

    virtual Joystick::JoystickManager& getJoystickManager() = 0;
    /// Any thread; it lives as long as the backend.
    virtual Joystick::JoystickMessageManager& getJoystickMessageManager() = 0;
    virtual void showJoystick(bool on) = 0;
    virtual void toggleJoystick() = 0;
    virtual Joystick::JoystickConfiguration getJoystickConfiguration() const = 0;

    virtual ComputerInput::ComputerInputManager& getComputerInputManager() = 0;
    /// Any thread; it lives as long as the backend.
    virtual ComputerInput::ComputerInputMessageManager& getComputerInputMessageManager() = 0;
    virtual void showComputerInput(bool on) = 0;
    virtual void toggleComputerInput() = 0;
    /// A key of the computer goes down, again and again while it is held, and comes up. Any thread; they post.
    virtual void keyDown(const Key& key, bool isRepeat) = 0;
    virtual void keyUp(const Key& key) = 0;
    /// See `ComputerInputManager`.
    virtual void mergeKeyConfigurations(const std::vector<ComputerInput::KeyConfiguration>& configurations,
                                        bool notifyGui) = 0;
    virtual ComputerInput::KeyConfigurationMap getComputerInputConfiguration() const = 0;

    virtual MidiInput::MidiInputManager& getMidiInputManager() = 0;
    /// Any thread; it lives as long as the backend.
    virtual MidiInput::MidiInputMessageManager& getMidiInputMessageManager() = 0;
    virtual void showMidiInput(bool on) = 0;
    virtual void toggleMidiInput() = 0;
    /// A copy.
    virtual MidiInput::MidiEventConfigurationMap getMidiInputConfiguration() const = 0;

    virtual Controls::ControlManager& getControlManager() = 0;
    virtual void showControl(bool on) = 0;
    virtual void toggleControl() = 0;

    virtual Layers::LayerManager& getLayerManager() = 0;
    /// Any thread; they live as long as the backend.
    virtual Layers::LayerMessageManager& getLayerMessageManager() = 0;
    virtual Zones::ZoneManager& getZoneManager() = 0;
    virtual Zones::ZoneMessageManager& getZoneMessageManager() = 0;
    virtual Display::DisplayMessageManager& getDisplayMessageManager() = 0;

    /// The current ones. The number may be set before `start`: the first bank is loaded with it.
    virtual Bank& getBank() = 0;
    virtual Program& getProgram() = 0;

    /// The host's clock call: plays what is due from pulse `startPpq` up to, not including, `endPpq`, at 480 pulses
    /// per quarter note. Always on the same thread, the one that `MidiPlayer::getThreadId` names. Spans follow each
    /// other without gaps; one of 5000 pulses or more plays nothing, one that ends before it starts catches up.
    virtual void playTimeSlice(std::int32_t startPpq, std::int32_t endPpq) = 0;

    /// The backend thread's. Read from the settings store in `initialize`, kept there in `end`.
    virtual RegistrySettings& getRegistrySettings() = 0;

    /// Any thread.
    virtual MessageManagerMaster& getMessageManagerMaster() = 0;

    /// Beats per minute, 20 to 250.
    virtual int getTempo() const = 0;
    /// -1 for the internal clock, otherwise an input port.
    virtual int getTempoSource() const = 0;
    /// Ignored if the result lies outside 20 to 250. With `notify` the GUI is notified.
    virtual void changeTempo(const RelativeFixedValue& value, bool notify) = 0;
    /// Ignored if `source` is neither -1 nor the index of an input port.
    virtual void setTempoSource(int source, bool notify) = 0;

    /// Works out anew which zones the inputs play in.
    virtual void updateZones() = 0;

    /// Ends every note and sends the hard reset's messages to the default output. Waits for a time slice.
    virtual void resetOrv() = 0;

    /// Cuts programs off the end of the current bank's file, or appends empty ones. A program beyond the new end gives
    /// way to the last one before it.
    virtual void changeBankSize(int size, const WindowHandle& window) = 0;
    /// Of the current program, in memory alone. A name that is not UTF-8 is ignored.
    virtual void changeProgramName(const std::string& name) = 0;

    /// The sequences that stand by themselves. The backend thread's.
    virtual SequenceManagement::SequencePresetManager& getSequencePresetManager() = 0;
    /// Writes the sequence of that text as a preset, in place of one of that name.
    virtual void addSequencePreset(const std::string& name, const std::string& text) = 0;

    /// See `ControlManager`.
    virtual void selectControl(const SelectControlType& select) = 0;
    virtual void changeControl(const SelectControlType& select, const RelativeFixedValue& value) = 0;
    virtual void sendControlData(const SelectControlType& select) = 0;

    /// The next, previous or given program of the bank; ignored at either end.
    virtual void changeProgram(const SelectType& select) = 0;

    /// The next, previous or given output that is enabled and open becomes the default one.
    virtual void changeDefaultMidiOutput(const SelectType& select) = 0;

    /// Asks the window for the pop-up menu of programs.
    virtual void showProgramMenu() = 0;

    /// See `ZoneManager`.
    virtual void changeZoneTranspose(const SelectType& select, const RelativeFixedValue& value) = 0;
    virtual void selectZone(const SelectType& select) = 0;

    /// Asks the window for the pop-up menu of outputs.
    virtual void showDefaultMidiOutputMenu() = 0;

    /// Kept in the settings: which screens the window showed when it was closed.
    virtual void setScreenState(const ScreenState& state) = 0;
    virtual ScreenState getScreenState() const = 0;

    /// Any thread; it lives as long as the backend.
    virtual RetroRecord::RetroRecordManager& getRetroRecordManager() = 0;
    /// Kept in the settings, and the GUI is notified: bytes for each output, 1000 to 200000000.
    virtual void setRetroRecordBufferSize(int bytes) = 0;
    virtual void enableRetroRecord(bool on) = 0;

    /// Kept in the settings; with `notify` the GUI is notified.
    virtual void changeMidiThru(const OnOffToggle& value, bool notify) = 0;
    virtual void changeGlobalKeyboard(const OnOffToggle& value, bool notify) = 0;

    /// See `LayerManager`.
    virtual void selectLayer(const SelectType& select) = 0;
    virtual void editLayer(const SelectType& select) = 0;
    virtual void changeLayerTranspose(const SelectType& select, const RelativeFixedValue& value) = 0;
    virtual void changeLayerVelocity(const SelectType& select, const RelativeFixedValue& value) = 0;
    virtual void changeLayerMute(const SelectType& select, const OnOffToggle& value) = 0;
    virtual void changeLayerMono(const SelectType& select, const OnOffToggle& value) = 0;
    virtual void changeLayerSolo(const SelectType& select, const OnOffToggle& value) = 0;
    virtual void changeLayerNoteToggle(const SelectType& select, const NoteToggle& value) = 0;

    /// Gives an event on its way to an output to the display, as a window does with each
    /// GuiMessage::MIDI_OUTPUT_EVENT it gets. Any thread but a time slice.
    virtual void displayMidiOutputEvent(const MidiEngine::OrvMidiMessage& event) = 0;

    /// Kept in the settings: what a simple program plays with.
    virtual void setLiteVelocity(int velocity) = 0;
    virtual void setLiteChannel(int channel) = 0;
    virtual void setLiteStackNotes(bool on) = 0;

    /// Kept in the settings, and the GUI is notified.
    virtual void setClickZoneChannelTranspose(bool on) = 0;

    /// True when every worker has handled to its end all that was posted to it, or waits in a reset for a time slice.
    /// Only a post, a slice or a `send` ends that state. Any thread.
    virtual bool isAtRest() const = 0;

    /// True while a reset waits for a time slice. Any thread.
    virtual bool isResetWaiting() const = 0;

    /// Asks the window to put the cursor into a control.
    virtual void setWidgetFocus(const SelectControlType& select) = 0;
    /// For a host that wants the same chance each time: what is left to it from now on depends on the seed alone. Any
    /// thread but the time slice.
    virtual void setRandomSeed(std::uint32_t seed) = 0;

    /// Makes a function of its element, `<ChangeTempo value="+10"/>`, and runs it; a text that is none does nothing.
    virtual void executeFunction(const std::string& xml) = 0;

    /// Asks the window to move, in pixels or along the whole screen.
    virtual void moveWindow(const WindowMove& move) = 0;

    /// From here until `stopJoysticks`, or `stop`, the joysticks that are plugged in play, on a thread of their own; at
    /// the end the buttons that are held are released. A host that does not call it may report joysticks itself, see
    /// `OrvMessageManager::postJoystickAxis`. The host's thread.
    virtual void startJoysticks() = 0;
    virtual void stopJoysticks() = 0;

    /// Makes the window's object, which the caller deletes; see `OrvMessageManager::sendCreateOrvGui`. Null where the
    /// library has no window.
    virtual Gui::OrvGuiIF* createOrvGui(bool isVstPlugin) = 0;
    /// Sends the window all that it shows. For one that was just opened.
    virtual void refreshGui() = 0;

    /// Writes the settings, as `end` does, and returns what else a host must keep to restore its state.
    virtual HostState saveState() = 0;

    /// Removes a sequence preset and its file. The window is notified of this, and of `addSequencePreset`, by
    /// GuiMessage::SEQUENCE_PRESETS.
    virtual void deleteSequencePreset(const std::string& name) = 0;
    /// See `RetroRecordManager::save`; the window is notified of the result.
    virtual void saveRetroRecord(const std::string& stem) = 0;

    /// Loads a preset of that section. One that is missing, cannot be read or is another section's changes nothing.
    virtual void loadPreset(const PresetSection& section, const std::string& name) = 0;

    /// See `OscManager`.
    virtual void selectOsc(const SelectType& select) = 0;
    virtual void changeOscPlaying(const SelectType& select, const OnOffToggle& value) = 0;
    virtual void changeOscSpeed(const SelectType& select, const RelativeFixedValue& value) = 0;
    /// A knob's position, 0 to 127, from the slowest speed to the fastest.
    virtual void setOscSpeedFromMidi(const SelectType& select, std::int32_t value) = 0;
};
}  // namespace Backend
