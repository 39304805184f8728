#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/Export.h"
#include "platform/Rect.h"

namespace Backend
{
/// Settings that belong to the installation rather than to a program. A value: the backend owns the true one, the
/// window a copy. They are read once when the backend starts and written once when it ends; only what was set is
/// written, so that a better default reaches everyone who never chose. One thread.
class ORV_API RegistrySettings
{
public:
    /// The kinds of value that the settings have.
    enum class Kind { text, onOff, number, rectangle };
    struct Info {
        const char* name;  ///< as it is stored
        Kind kind;
    };

    /// Every setting, in the order in which they are written.
    static std::vector<Info> getTable();

    /// Takes every value that is stored under the key and fits; the others stay as they are. False if there can be no
    /// such key.
    bool loadFromRegistry(const std::string& key);

    /// Writes what was set since it was last written, and the choices of ports always. False if that failed; what was
    /// set is then written the next time.
    bool saveToRegistry(const std::string& key);

    /// Path of the bank loaded at the start; empty or blank for the one in the banks folder.
    const std::string& getDefaultBank() const { return defaultBank.value; }
    void setDefaultBank(const std::string& path) { defaultBank.set(path); }

    /// Whether the computer's keyboard plays while other programs have the focus. Off by default.
    bool getGlobalKeyboard() const { return globalKeyboard.value; }
    void setGlobalKeyboard(bool on) { globalKeyboard.set(on); }

    /// Whether incoming MIDI also goes to the player. On by default.
    bool getMidiThru() const { return midiThru.value; }
    void setMidiThru(bool on) { midiThru.set(on); }

    /// The retrospective record: on by default, and its size in bytes. Nobody reads the folder.
    bool isRetroRecordEnabled() const { return retroRecordEnabled.value; }
    void setRetroRecordEnabled(bool on) { retroRecordEnabled.set(on); }
    int getRetroRecordBufferSize() const { return retroRecordBufferSize.value; }
    void setRetroRecordBufferSize(int bytes) { retroRecordBufferSize.set(bytes); }
    const std::string& getMidiBufferDir() const { return midiBufferDir.value; }
    void setMidiBufferDir(const std::string& folder) { midiBufferDir.set(folder); }

    /// What a movement of the mouse is divided by.
    int getMouseSensitivity() const { return mouseSensitivity.value; }
    void setMouseSensitivity(int divisor) { mouseSensitivity.set(divisor); }

    /// The display: its font, what it shows, numbers instead of names, height in pixels.
    bool getLargeDisplayFont() const { return largeDisplayFont.value; }
    void setLargeDisplayFont(bool on) { largeDisplayFont.set(on); }
    bool getDisplayMidiInputEvents() const { return displayMidiInputEvents.value; }
    void setDisplayMidiInputEvents(bool on) { displayMidiInputEvents.set(on); }
    bool getDisplayMidiOutputEvents() const { return displayMidiOutputEvents.value; }
    void setDisplayMidiOutputEvents(bool on) { displayMidiOutputEvents.set(on); }
    bool getDisplayNumbers() const { return displayNumbers.value; }
    void setDisplayNumbers(bool on) { displayNumbers.set(on); }
    int getDisplayHeight() const { return displayHeight.value; }
    void setDisplayHeight(int pixels) { displayHeight.set(pixels); }

    /// The window. A position of all -1 is none.
    bool getDockToBottomEdge() const { return dockToBottomEdge.value; }
    void setDockToBottomEdge(bool on) { dockToBottomEdge.set(on); }
    const WindowsLib::Rect& getLastWindowPosition() const { return lastWindowPosition.value; }
    void setLastWindowPosition(const WindowsLib::Rect& position) { lastWindowPosition.set(position); }
    bool getAlwaysOnTop() const { return alwaysOnTop.value; }
    void setAlwaysOnTop(bool on) { alwaysOnTop.set(on); }
    bool getUseSkinBorder() const { return useSkinBorder.value; }
    void setUseSkinBorder(bool on) { useSkinBorder.set(on); }

    /// Index of the output for events that name none, -1 for none. -1 until the first list of ports settles it.
    int getDefaultMidiOutput() const { return defaultMidiOutput.value; }
    void setDefaultMidiOutput(int port) { defaultMidiOutput.set(port); }

    /// What a simple program plays with: velocity, channel (0 for the first), and whether notes are stacked.
    int getLiteVelocity() const { return liteVelocity.value; }
    void setLiteVelocity(int velocity) { liteVelocity.set(velocity); }
    int getLiteChannel() const { return liteChannel.value; }
    void setLiteChannel(int channel) { liteChannel.set(channel); }
    bool getLiteStackNotes() const { return liteStackNotes.value; }
    void setLiteStackNotes(bool on) { liteStackNotes.set(on); }

    /// Whether a click before or behind a zone transposes it.
    bool getClickZoneChannelTranspose() const { return clickZoneChannelTranspose.value; }
    void setClickZoneChannelTranspose(bool on) { clickZoneChannelTranspose.set(on); }

    /// Which screens the window showed when it was last closed, see `ScreenState::toBits`; empty before that.
    std::vector<bool> getScreens() const { return getBoolVectorFromString(screenState.value); }
    void setScreens(const std::vector<bool>& bits) { screenState.set(getStringFromBoolVector(bits)); }

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
    template <class Value>
    struct Setting {
        const char* name;
        Value value;
        bool dirty = false;  // set since it was last written

        void set(Value newValue)
        {
            value = std::move(newValue);
            dirty = true;
        }
    };

    /// Every setting in turn.
    template <class Self, class Visit>
    static void visitAll(Self& self, Visit visit);

    // The table: type, stored name and default.
    Setting<std::string> progDir{"ProgDir", ""};
    Setting<std::string> defaultBank{"DefaultBank", ""};
    Setting<bool> globalKeyboard{"GlobalKeyboard", false};
    Setting<bool> midiThru{"MidiThru", true};
    Setting<bool> retroRecordEnabled{"RetroRecordEnabled", true};
    Setting<int> retroRecordBufferSize{"MaxMidiBufferFileSize", 100000};
    Setting<std::string> midiBufferDir{"MidiBufferDir", ""};
    Setting<bool> largeDisplayFont{"LargeDisplayFont", false};
    Setting<int> mouseSensitivity{"MouseSensitivity", 1};
    Setting<bool> dockToBottomEdge{"DockToBottomEdge", false};
    Setting<bool> displayMidiInputEvents{"DisplayMidiInputEvents", false};
    Setting<bool> displayMidiOutputEvents{"DisplayMidiOutputEvents", true};
    Setting<bool> displayNumbers{"DisplayNumbers", false};
    Setting<int> displayHeight{"DisplayHeight", 200};
    Setting<WindowsLib::Rect> lastWindowPosition{"LastWindowPosition", {-1, -1, -1, -1}};
    Setting<std::string> enabledMidiInputs{"EnabledMidiInputs", ""};
    Setting<std::string> enabledMidiOutputs{"EnabledMidiOutputs", ""};
    Setting<bool> alwaysOnTop{"AlwaysOnTop", false};
    Setting<bool> useSkinBorder{"UseSkinBorder", true};
    Setting<int> defaultMidiOutput{"DefaultMidiOutput", -1};
    Setting<int> liteVelocity{"LiteVelocity", 100};
    Setting<int> liteChannel{"LiteChannel", 0};
    Setting<bool> liteStackNotes{"LiteStackNotes", true};
    Setting<bool> clickZoneChannelTranspose{"ClickZoneChannelTranspose", false};
    Setting<std::string> screenState{"ScreenState", ""};

    // The working form of the two lists of ports
    std::vector<bool> enabledInputs;
    std::vector<bool> enabledOutputs;
};
}  // namespace Backend
