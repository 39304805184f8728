#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "api/HostState.h"
#include "backend/model/Settings.h"
#include "platform/Export.h"
#include "platform/Rect.h"

namespace Backend
{
/// The values of all settings, see `Settings.h`. The backend has the original, the window a copy. They are read when
/// the backend starts and written when it ends. Only values that were set are written, so that a new default applies to
/// every user who has not changed the setting. One thread.
class ORV_API RegistrySettings
{
    template <const auto& row>
    struct Stored {
        Settings::ValueOf<row> value{row.standard};
        bool dirty = false;  // set since it was last written
    };

public:
    template <const auto& row>
    Settings::ResultOf<row> get() const
    {
        return static_cast<const Stored<row>&>(values).value;
    }
    /// The value will be written, even if it is the default.
    template <const auto& row>
    void set(const Settings::ValueOf<row>& value)
    {
        static_cast<Stored<row>&>(values) = {value, true};
    }

    /// Reads all values that are stored under the key and valid; the others keep their values. False if the key cannot
    /// be read.
    bool loadFromRegistry(const std::string& key);

    /// Writes what was set since the last write, and always the choices of ports. False if that failed; then these
    /// values are written the next time.
    bool saveToRegistry(const std::string& key);

    /// Path of the bank that is loaded at the start; empty or blank for the one in the banks folder.
    const std::string& getDefaultBank() const { return get<Settings::DEFAULT_BANK>(); }
    void setDefaultBank(const std::string& path) { set<Settings::DEFAULT_BANK>(path); }

    /// Whether the computer's keyboard plays while other programs have the focus. Off by default.
    bool getGlobalKeyboard() const { return get<Settings::GLOBAL_KEYBOARD>(); }
    void setGlobalKeyboard(bool on) { set<Settings::GLOBAL_KEYBOARD>(on); }

    /// Whether incoming MIDI also goes to the player. On by default.
    bool getMidiThru() const { return get<Settings::MIDI_THRU>(); }
    void setMidiThru(bool on) { set<Settings::MIDI_THRU>(on); }

    /// The retrospective record: whether it is on (the default), and its size in bytes. The folder is not used.
    bool isRetroRecordEnabled() const { return get<Settings::RETRO_RECORD_ENABLED>(); }
    void setRetroRecordEnabled(bool on) { set<Settings::RETRO_RECORD_ENABLED>(on); }
    int getRetroRecordBufferSize() const { return get<Settings::RETRO_RECORD_BUFFER_SIZE>(); }
    void setRetroRecordBufferSize(int bytes) { set<Settings::RETRO_RECORD_BUFFER_SIZE>(bytes); }
    const std::string& getMidiBufferDir() const { return get<Settings::MIDI_BUFFER_DIR>(); }
    void setMidiBufferDir(const std::string& folder) { set<Settings::MIDI_BUFFER_DIR>(folder); }

    /// The divisor of mouse movements.
    int getMouseSensitivity() const { return get<Settings::MOUSE_SENSITIVITY>(); }
    void setMouseSensitivity(int divisor) { set<Settings::MOUSE_SENSITIVITY>(divisor); }

    /// The display: its font, what it shows, numbers instead of names, height in pixels.
    bool getLargeDisplayFont() const { return get<Settings::LARGE_DISPLAY_FONT>(); }
    void setLargeDisplayFont(bool on) { set<Settings::LARGE_DISPLAY_FONT>(on); }
    bool getDisplayMidiInputEvents() const { return get<Settings::DISPLAY_MIDI_INPUT_EVENTS>(); }
    void setDisplayMidiInputEvents(bool on) { set<Settings::DISPLAY_MIDI_INPUT_EVENTS>(on); }
    bool getDisplayMidiOutputEvents() const { return get<Settings::DISPLAY_MIDI_OUTPUT_EVENTS>(); }
    void setDisplayMidiOutputEvents(bool on) { set<Settings::DISPLAY_MIDI_OUTPUT_EVENTS>(on); }
    bool getDisplayNumbers() const { return get<Settings::DISPLAY_NUMBERS>(); }
    void setDisplayNumbers(bool on) { set<Settings::DISPLAY_NUMBERS>(on); }
    int getDisplayHeight() const { return get<Settings::DISPLAY_HEIGHT>(); }
    void setDisplayHeight(int pixels) { set<Settings::DISPLAY_HEIGHT>(pixels); }

    /// The window. A position of four times -1 means none.
    bool getDockToBottomEdge() const { return get<Settings::DOCK_TO_BOTTOM_EDGE>(); }
    void setDockToBottomEdge(bool on) { set<Settings::DOCK_TO_BOTTOM_EDGE>(on); }
    const WindowsLib::Rect& getLastWindowPosition() const { return get<Settings::LAST_WINDOW_POSITION>(); }
    void setLastWindowPosition(const WindowsLib::Rect& position) { set<Settings::LAST_WINDOW_POSITION>(position); }
    bool getAlwaysOnTop() const { return get<Settings::ALWAYS_ON_TOP>(); }
    void setAlwaysOnTop(bool on) { set<Settings::ALWAYS_ON_TOP>(on); }
    bool getUseSkinBorder() const { return get<Settings::USE_SKIN_BORDER>(); }
    void setUseSkinBorder(bool on) { set<Settings::USE_SKIN_BORDER>(on); }

    /// Index of the output for events that name none, -1 for none. It is -1 until the first list of ports arrives.
    int getDefaultMidiOutput() const { return get<Settings::DEFAULT_MIDI_OUTPUT>(); }
    void setDefaultMidiOutput(int port) { set<Settings::DEFAULT_MIDI_OUTPUT>(port); }

    /// The settings of a simple program: velocity, channel (from 0), and whether notes are stacked.
    int getLiteVelocity() const { return get<Settings::LITE_VELOCITY>(); }
    void setLiteVelocity(int velocity) { set<Settings::LITE_VELOCITY>(velocity); }
    int getLiteChannel() const { return get<Settings::LITE_CHANNEL>(); }
    void setLiteChannel(int channel) { set<Settings::LITE_CHANNEL>(channel); }
    bool getLiteStackNotes() const { return get<Settings::LITE_STACK_NOTES>(); }
    void setLiteStackNotes(bool on) { set<Settings::LITE_STACK_NOTES>(on); }

    /// Whether a click before or after a zone transposes it.
    bool getClickZoneChannelTranspose() const { return get<Settings::CLICK_ZONE_CHANNEL_TRANSPOSE>(); }
    void setClickZoneChannelTranspose(bool on) { set<Settings::CLICK_ZONE_CHANNEL_TRANSPOSE>(on); }

    /// Which screens the window showed when it was last closed, see `ScreenState::toBits`; empty before that.
    std::vector<bool> getScreens() const { return getBoolVectorFromString(get<Settings::SCREEN_STATE>()); }
    void setScreens(const std::vector<bool>& bits) { set<Settings::SCREEN_STATE>(getStringFromBoolVector(bits)); }

    /// The user's choice for each port index. The lists grow on demand, with false; missing devices keep theirs.
    std::vector<bool> getEnabledMidiInputs() const { return enabledInputs; }
    std::vector<bool> getEnabledMidiOutputs() const { return enabledOutputs; }
    /// A negative index is ignored.
    void setMidiInputEnabled(int port, bool enabled);
    void setMidiOutputEnabled(int port, bool enabled);

    /// Those that a host executes; a value outside its range is the default.
    HostSettings getHostSettings() const;

    /// The stored form of such a list, one letter each: Y or y for true, N or anything else for false.
    static std::vector<bool> getBoolVectorFromString(std::string_view text);
    static std::string getStringFromBoolVector(const std::vector<bool>& bits);

private:
    template <class List>
    struct Values;
    template <const auto&... rows>
    struct Values<Settings::Rows<rows...>> : Stored<rows>... {
    };

    /// Calls `visit` with the name and the value of each row in turn.
    template <class Visit>
    void visitAll(Visit visit);

    Values<Settings::All> values;

    // The lists of ports, as they are used
    std::vector<bool> enabledInputs;
    std::vector<bool> enabledOutputs;
};
}  // namespace Backend
