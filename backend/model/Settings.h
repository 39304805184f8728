#pragma once

#include <string>
#include <string_view>
#include <type_traits>

#include "platform/Rect.h"

/// The settings of the installation. A row has everything about one: the store, the command, the message to the window
/// and the field of the setup dialog refer to it.
namespace Backend::Settings
{
/// The message to the window when a setting was changed: none, one of its own, or that with all settings, which for a
/// setting of the host goes to the host, too.
enum class Notice { none, own, all, host };

template <class Type>
struct Setting {
    using Value = std::conditional_t<std::is_same_v<Type, std::string_view>, std::string, Type>;

    const char* name;  ///< in the store
    Type standard;     ///< the default
    /// Of the command that changes it, and of its own message; 0 if there is no command.
    unsigned int number = 0;
    Notice notice = Notice::none;
    /// The range that a command may set. If both are equal, nothing is checked.
    int lowest = 0;
    int highest = 0;

    constexpr bool allows(const Value& value) const
    {
        if constexpr (std::is_same_v<Type, int>)
            return lowest == highest || (value >= lowest && value <= highest);
        else
            return true;
    }
};

using Text = Setting<std::string_view>;
using Switch = Setting<bool>;
using Number = Setting<int>;
using Rectangle = Setting<WindowsLib::Rect>;

inline constexpr Text PROG_DIR{"ProgDir", ""};
inline constexpr Text DEFAULT_BANK{"DefaultBank", "", 33230, Notice::own};
inline constexpr Switch GLOBAL_KEYBOARD{"GlobalKeyboard", false, 33266, Notice::own};
inline constexpr Switch MIDI_THRU{"MidiThru", true, 33265, Notice::own};
/// Held notes ring on over a change of layers, oscillators or program, see docs/decisions/0025.
inline constexpr Switch KEEP_NOTES{"KeepNotes", false, 33283, Notice::all};
inline constexpr Switch RETRO_RECORD_ENABLED{"RetroRecordEnabled", true, 33263, Notice::own};
/// Bytes for each output.
inline constexpr Number RETRO_RECORD_BUFFER_SIZE{
    "MaxMidiBufferFileSize", 100'000, 33262, Notice::own, 1'000, 200'000'000};
inline constexpr Text MIDI_BUFFER_DIR{"MidiBufferDir", ""};
inline constexpr Switch LARGE_DISPLAY_FONT{"LargeDisplayFont", false, 33233, Notice::own};
/// Pixels of mouse movement for one step.
inline constexpr Number MOUSE_SENSITIVITY{"MouseSensitivity", 1, 33268, Notice::own};
inline constexpr Switch DOCK_TO_BOTTOM_EDGE{"DockToBottomEdge", false, 33229, Notice::own};
inline constexpr Switch DISPLAY_MIDI_INPUT_EVENTS{"DisplayMidiInputEvents", false, 33234};
inline constexpr Switch DISPLAY_MIDI_OUTPUT_EVENTS{"DisplayMidiOutputEvents", true, 33235};
inline constexpr Switch DISPLAY_NUMBERS{"DisplayNumbers", false, 33232};
inline constexpr Switch DISPLAY_TIMES{"DisplayTimes", false, 33328};
/// Pixels.
inline constexpr Number DISPLAY_HEIGHT{"DisplayHeight", 200, 33231};
inline constexpr Rectangle LAST_WINDOW_POSITION{"LastWindowPosition", {-1, -1, -1, -1}, 33227};
inline constexpr Text ENABLED_MIDI_INPUTS{"EnabledMidiInputs", ""};
inline constexpr Text ENABLED_MIDI_OUTPUTS{"EnabledMidiOutputs", ""};
inline constexpr Switch ALWAYS_ON_TOP{"AlwaysOnTop", false, 33236, Notice::own};
inline constexpr Switch USE_SKIN_BORDER{"UseSkinBorder", true, 33260, Notice::own};
inline constexpr Number DEFAULT_MIDI_OUTPUT{"DefaultMidiOutput", -1};
inline constexpr Number LITE_VELOCITY{"LiteVelocity", 100, 33269};
inline constexpr Number LITE_CHANNEL{"LiteChannel", 0, 33270};
inline constexpr Switch LITE_STACK_NOTES{"LiteStackNotes", true, 33271};
inline constexpr Switch CLICK_ZONE_CHANNEL_TRANSPOSE{"ClickZoneChannelTranspose", false, 33272, Notice::own};
inline constexpr Text SCREEN_STATE{"ScreenState", ""};
/// Percent.
inline constexpr Number WINDOW_SCALE{"WindowScale", 100, 33285, Notice::all, 75, 400};
/// In the order of `GdiManager::SKINS`.
inline constexpr Number SKIN{"Skin", 0, 33286, Notice::all, 0, 2};
/// Of the window inside its frame, in logical pixels, as the user has dragged it; 0 for its natural height.
inline constexpr Number WINDOW_HEIGHT{"WindowHeight", 0, 33293, Notice::none, 0, 20'000};
/// "Ask before changes are lost", a value of `BeforeLoss`.
inline constexpr Number ASK_BEFORE_LOSS{"AskBeforeLoss", 1, 33292, Notice::all, 0, 2};

/// Whose MIDI program changes load programs, see `ProgramChangeInput`: an input, -1 for all, -2 for none; a channel, -1
/// for all.
inline constexpr Number PROGRAM_CHANGE_INPUT{"ProgramChangeInput", -2, 33321, Notice::all, -2, 127};
inline constexpr Number PROGRAM_CHANGE_CHANNEL{"ProgramChangeChannel", -1, 33322, Notice::all, -1, 15};
/// A start begins with the bank and program of the last end, which the two rows after it have; with the default bank if
/// it is off.
inline constexpr Switch CONTINUE_LAST{"ContinueLast", true, 33312, Notice::all};
inline constexpr Text LAST_BANK{"LastBank", ""};
inline constexpr Number LAST_PROGRAM{"LastProgram", 0};
/// Paths of files that were loaded last, the newest first, a line each.
inline constexpr Text RECENT_FILES{"RecentFiles", "", 33313, Notice::all};
/// Where the dialogs for files start.
inline constexpr Text FILE_FOLDER{"FileFolder", "", 33314, Notice::all};

/// The section of controllers: an output, -1 for the default output, a channel, and the controllers of its rows.
inline constexpr Number CC_OUTPUT{"CcOutput", -1, 33355, Notice::all, -1, 127};
inline constexpr Number CC_CHANNEL{"CcChannel", 0, 33356, Notice::all, 0, 15};
inline constexpr Text CC_CONTROLLERS{"CcControllers", "7,10,11,64,91,93", 33357, Notice::all};

/// Of the host that plays live, see `HostSettings`. The volume is in percent.
inline constexpr Number SYNTHESIZER_VOLUME{"SynthesizerVolume", 100, 33340, Notice::host, 0, 100};
inline constexpr Switch SYNTHESIZER_REVERB{"SynthesizerReverb", true, 33341, Notice::host};
inline constexpr Text SOUND_FONT{"SoundFont", "", 33342, Notice::host};
inline constexpr Text CLIENT_NAME{"ClientName", "", 33343, Notice::host};
inline constexpr Switch CONNECT_SOUND{"ConnectSound", true, 33344, Notice::host};
inline constexpr Number CLOCK_IN{"ClockIn", -1, 33345, Notice::host, -1, 127};
inline constexpr Number CLOCK_OUT{"ClockOut", -1, 33346, Notice::host, -1, 127};
inline constexpr Switch FOLLOW_TRANSPORT{"FollowTransport", false, 33347, Notice::host};

template <const auto&... rows>
struct Rows {
    /// Calls `visit.template operator()<row>()` for each row, in order.
    template <class Visit>
    static void forEach(Visit&& visit)
    {
        (visit.template operator()<rows>(), ...);
    }
};

/// All settings, in the order in which they are written.
using All =
    Rows<PROG_DIR, DEFAULT_BANK, GLOBAL_KEYBOARD, MIDI_THRU, KEEP_NOTES, RETRO_RECORD_ENABLED, RETRO_RECORD_BUFFER_SIZE,
         MIDI_BUFFER_DIR, LARGE_DISPLAY_FONT, MOUSE_SENSITIVITY, DOCK_TO_BOTTOM_EDGE, DISPLAY_MIDI_INPUT_EVENTS,
         DISPLAY_MIDI_OUTPUT_EVENTS, DISPLAY_NUMBERS, DISPLAY_HEIGHT, LAST_WINDOW_POSITION, ENABLED_MIDI_INPUTS,
         ENABLED_MIDI_OUTPUTS, ALWAYS_ON_TOP, USE_SKIN_BORDER, DEFAULT_MIDI_OUTPUT, LITE_VELOCITY, LITE_CHANNEL,
         LITE_STACK_NOTES, CLICK_ZONE_CHANNEL_TRANSPOSE, SCREEN_STATE, WINDOW_SCALE, SKIN, WINDOW_HEIGHT,
         ASK_BEFORE_LOSS, PROGRAM_CHANGE_INPUT, PROGRAM_CHANGE_CHANNEL, CONTINUE_LAST, LAST_BANK, LAST_PROGRAM,
         RECENT_FILES, FILE_FOLDER, DISPLAY_TIMES, CC_OUTPUT, CC_CHANNEL, CC_CONTROLLERS, SYNTHESIZER_VOLUME,
         SYNTHESIZER_REVERB, SOUND_FONT, CLIENT_NAME, CONNECT_SOUND, CLOCK_IN, CLOCK_OUT, FOLLOW_TRANSPORT>;

/// The type of a row's value.
template <const auto& row>
using ValueOf = typename std::remove_cvref_t<decltype(row)>::Value;

/// How a value is returned: texts and rectangles by reference.
template <const auto& row>
using ResultOf = std::conditional_t<std::is_scalar_v<ValueOf<row>>, ValueOf<row>, const ValueOf<row>&>;
}  // namespace Backend::Settings
