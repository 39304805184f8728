#pragma once

#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "backend/model/Settings.h"
#include "platform/Export.h"
#include "platform/Rect.h"

namespace Backend
{
/// The values of all settings, see `Settings.h`. The backend owns the original, the window a copy. They are read once
/// when the backend starts and written once when it ends; only what was set is written, so that a new default reaches
/// every user who never changed the value. One thread.
class ORV_API RegistrySettings
{
public:
    template <const auto& row>
    Settings::ResultOf<row> get() const
    {
        return std::get<Settings::placeOf<row>()>(values).value;
    }
    /// The value is written the next time, also if it is the default.
    template <const auto& row>
    void set(const Settings::ValueOf<row>& value)
    {
        std::get<Settings::placeOf<row>()>(values) = {value, true};
    }

    /// Takes every value that is stored under the key and fits; the others stay as they are. False if there can be no
    /// such key.
    bool loadFromRegistry(const std::string& key);

    /// Writes what was set since it was last written, and the choices of ports always. False if that failed; what was
    /// set is then written the next time.
    bool saveToRegistry(const std::string& key);

    /// Path of the bank loaded at the start; empty or blank for the one in the banks folder.
    const std::string& getDefaultBank() const { return get<Settings::DEFAULT_BANK>(); }
    void setDefaultBank(const std::string& path) { set<Settings::DEFAULT_BANK>(path); }

    /// Whether the computer's keyboard plays while other programs have the focus. Off by default.
    bool getGlobalKeyboard() const { return get<Settings::GLOBAL_KEYBOARD>(); }
    void setGlobalKeyboard(bool on) { set<Settings::GLOBAL_KEYBOARD>(on); }

    /// Whether incoming MIDI also goes to the player. On by default.
    bool getMidiThru() const { return get<Settings::MIDI_THRU>(); }
    void setMidiThru(bool on) { set<Settings::MIDI_THRU>(on); }

    /// The retrospective record: on by default, and its size in bytes. The folder is not used.
    bool isRetroRecordEnabled() const { return get<Settings::RETRO_RECORD_ENABLED>(); }
    void setRetroRecordEnabled(bool on) { set<Settings::RETRO_RECORD_ENABLED>(on); }
    int getRetroRecordBufferSize() const { return get<Settings::RETRO_RECORD_BUFFER_SIZE>(); }
    void setRetroRecordBufferSize(int bytes) { set<Settings::RETRO_RECORD_BUFFER_SIZE>(bytes); }
    const std::string& getMidiBufferDir() const { return get<Settings::MIDI_BUFFER_DIR>(); }
    void setMidiBufferDir(const std::string& folder) { set<Settings::MIDI_BUFFER_DIR>(folder); }

    /// What a movement of the mouse is divided by.
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

    /// The window. A position of all -1 is none.
    bool getDockToBottomEdge() const { return get<Settings::DOCK_TO_BOTTOM_EDGE>(); }
    void setDockToBottomEdge(bool on) { set<Settings::DOCK_TO_BOTTOM_EDGE>(on); }
    const WindowsLib::Rect& getLastWindowPosition() const { return get<Settings::LAST_WINDOW_POSITION>(); }
    void setLastWindowPosition(const WindowsLib::Rect& position) { set<Settings::LAST_WINDOW_POSITION>(position); }
    bool getAlwaysOnTop() const { return get<Settings::ALWAYS_ON_TOP>(); }
    void setAlwaysOnTop(bool on) { set<Settings::ALWAYS_ON_TOP>(on); }
    bool getUseSkinBorder() const { return get<Settings::USE_SKIN_BORDER>(); }
    void setUseSkinBorder(bool on) { set<Settings::USE_SKIN_BORDER>(on); }

    /// Index of the output for events that name none, -1 for none. -1 until the first list of ports settles it.
    int getDefaultMidiOutput() const { return get<Settings::DEFAULT_MIDI_OUTPUT>(); }
    void setDefaultMidiOutput(int port) { set<Settings::DEFAULT_MIDI_OUTPUT>(port); }

    /// What a simple program plays with: velocity, channel (0 for the first), and whether notes are stacked.
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

    /// The user's choice per port index. They grow on demand (new ones false) and outlive a device that is away.
    std::vector<bool> getEnabledMidiInputs() const { return enabledInputs; }
    std::vector<bool> getEnabledMidiOutputs() const { return enabledOutputs; }
    /// A negative index is ignored.
    void setMidiInputEnabled(int port, bool enabled);
    void setMidiOutputEnabled(int port, bool enabled);

    /// The stored form of such a list, a letter each: Y (or y) for true, and N, or anything else, for false.
    static std::vector<bool> getBoolVectorFromString(std::string_view text);
    static std::string getStringFromBoolVector(const std::vector<bool>& bits);

private:
    template <class Type>
    struct Stored {
        typename Settings::Setting<Type>::Value value;
        bool dirty = false;  // set since it was last written
    };
    template <class... Types>
    static std::tuple<Stored<Types>...> standards(const std::tuple<const Settings::Setting<Types>*...>& rows)
    {
        return std::apply(
            [](const auto*... row) {
                return std::tuple(Stored<Types>{typename Settings::Setting<Types>::Value(row->standard)}...);
            },
            rows);
    }

    /// Calls `visit` with each row and its value in turn.
    template <class Values, class Visit>
    static void visitAll(Values& values, Visit visit);

    decltype(standards(Settings::ALL)) values = standards(Settings::ALL);

    // The working form of the two lists of ports
    std::vector<bool> enabledInputs;
    std::vector<bool> enabledOutputs;
};
}  // namespace Backend
