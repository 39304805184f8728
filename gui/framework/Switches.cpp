#include "gui/framework/Switches.h"

#include <QAbstractButton>

#include "api/OrvMessageManager.h"
#include "backend/files/RegistrySettings.h"
#include "backend/messages/SettingMessages.h"
#include "gui/framework/Properties.h"

namespace Gui
{
using Commands = Backend::OrvMessageManager;
using Settings = Backend::RegistrySettings;
namespace Rows = Backend::Settings;

namespace
{
/// The control of a setting's row.
template <const auto& row>
constexpr Switch setting(const char* name, const char* help)
{
    return {name, help, &Settings::get<row>,
            [](Commands& commands, bool on) { commands.postSetting(Backend::SETTING<row>(on)); }};
}
template <auto operation>
void postToggle(Commands& commands, bool on)
{
    (commands.*operation)({on ? OnOffToggle::State::on : OnOffToggle::State::off}, true);
}

constexpr Switch DISPLAY_TABLE[] = {
    setting<Rows::DISPLAY_MIDI_INPUT_EVENTS>("Show input events", "Lists the MIDI events that are received."),
    setting<Rows::DISPLAY_MIDI_OUTPUT_EVENTS>("Show output events",
                                              "Lists the MIDI events that are sent to the outputs."),
    setting<Rows::DISPLAY_NUMBERS>("Number the lines", "Numbers the lines of the display."),
    setting<Rows::DISPLAY_TIMES>("Show the time", "Begins the lines of the display with the time of day."),
    setting<Rows::LARGE_DISPLAY_FONT>("Large font", "Shows the newest event alone, in large letters.")};

constexpr Switch WINDOW_TABLE[] = {
    setting<Rows::DOCK_TO_BOTTOM_EDGE>(
        "Dock to bottom edge", "The bottom edge of the window keeps its place when screens are shown and hidden."),
    setting<Rows::ALWAYS_ON_TOP>("Always on top", "The window stays in front of the windows of other programs."),
    setting<Rows::USE_SKIN_BORDER>("Metallic Border", "The window has a border of its own instead of the desktop's.")};
}  // namespace

namespace Switches
{
constexpr Switch MIDI_THRU{"MIDI thru", "MIDI thru: events received at the MIDI inputs are played, through the layers.",
                           &Settings::getMidiThru, &postToggle<&Commands::postChangeMidiThru>};

constexpr Switch GLOBAL_KEYBOARD{"Global keyboard", "", &Settings::getGlobalKeyboard,
                                 &postToggle<&Commands::postChangeGlobalKeyboard>};

constexpr Switch KEEP_NOTES = setting<Rows::KEEP_NOTES>(
    "Held notes ring on over changes",
    "Notes that you hold ring on when you change the program or edit a layer, until you release their keys.");

constexpr Switch CONTINUE_LAST = setting<Rows::CONTINUE_LAST>(
    "Begin where Orvane was closed",
    "At the start the bank and program are loaded that were there when Orvane was closed, not the default bank.");

constexpr Switch RECORD = setting<Rows::RETRO_RECORD_ENABLED>(
    "Record what is played", "Record: keeps what you play, so that you can save it afterwards.");

constexpr Switch REVERB =
    setting<Rows::SYNTHESIZER_REVERB>("Reverb", "Reverb of the built-in synthesizer, for all its channels.");

constexpr Switch CONNECT_SOUND = setting<Rows::CONNECT_SOUND>(
    "Connect the synthesizer at the start",
    "At the start the built-in synthesizer is connected to the sound card in JACK. Other connections of JACK are made "
    "with --connect on the command line.");

constexpr Switch TRANSPORT = setting<Rows::FOLLOW_TRANSPORT>(
    "Follow the JACK transport",
    "Tempo and position of the JACK transport set the tempo, and start and stop the MIDI clock that is sent. A MIDI "
    "clock that is received comes before it.");

constexpr std::span<const Switch> DISPLAY(DISPLAY_TABLE);
constexpr std::span<const Switch> WINDOW(WINDOW_TABLE);
}  // namespace Switches

void makeSwitch(QAbstractButton& button, const Switch& setting, Commands& commands)
{
    button.setCheckable(true);
    button.setAccessibleName(QObject::tr(setting.name));
    Property::setHelp(button, QObject::tr(setting.help));
    QObject::connect(&button, &QAbstractButton::clicked, &button,
                     [&setting, &commands](bool on) { setting.post(commands, on); });
}
}  // namespace Gui
