#include "gui/framework/Switches.h"

#include <QAbstractButton>

#include "api/OrvMessageManager.h"
#include "backend/files/RegistrySettings.h"
#include "gui/framework/Properties.h"

namespace Gui
{
using Commands = Backend::OrvMessageManager;
using Settings = Backend::RegistrySettings;

namespace
{
template <auto operation>
void post(Commands& commands, bool on)
{
    (commands.*operation)(on);
}
template <auto operation>
void postToggle(Commands& commands, bool on)
{
    (commands.*operation)({on ? OnOffToggle::State::on : OnOffToggle::State::off}, true);
}

constexpr Switch DISPLAY_TABLE[] = {
    {"Show input events", "Lists the MIDI events that are received.", &Settings::getDisplayMidiInputEvents,
     &post<&Commands::postSetDisplayMidiInputEvents>},
    {"Show output events", "Lists the MIDI events that are sent to the outputs.", &Settings::getDisplayMidiOutputEvents,
     &post<&Commands::postSetDisplayMidiOutputEvents>},
    {"Number the lines", "Numbers the lines of the display.", &Settings::getDisplayNumbers,
     &post<&Commands::postSetDisplayNumbers>},
    {"Large font", "A larger font for the display, to be read from a distance.", &Settings::getLargeDisplayFont,
     &post<&Commands::postSetLargeDisplayFont>}};

constexpr Switch WINDOW_TABLE[] = {
    {"Dock to bottom edge", "The bottom edge of the window keeps its place when screens are shown and hidden.",
     &Settings::getDockToBottomEdge, &post<&Commands::postSetDockToBottomEdge>},
    {"Always on top", "The window stays in front of the windows of other programs.", &Settings::getAlwaysOnTop,
     &post<&Commands::postSetAlwaysOnTop>},
    {"Metallic Border", "The window has a border of its own instead of the desktop's.", &Settings::getUseSkinBorder,
     &post<&Commands::postSetUseSkinBorder>}};
}  // namespace

namespace Switches
{
constexpr Switch MIDI_THRU{"MIDI thru", "MIDI thru: events received at the MIDI inputs are played, through the layers.",
                           &Settings::getMidiThru, &postToggle<&Commands::postChangeMidiThru>};

constexpr Switch GLOBAL_KEYBOARD{"Global keyboard", "", &Settings::getGlobalKeyboard,
                                 &postToggle<&Commands::postChangeGlobalKeyboard>};

constexpr Switch CLICK_ZONE_CHANNEL_TRANSPOSE{
    "Click before or after zone transposes zone.",
    "A click on the piano keyboard outside a zone transposes that zone by octaves so that it includes the key.",
    &Settings::getClickZoneChannelTranspose, &post<&Commands::postSetClickZoneChannelTranspose>};

constexpr Switch RECORD{"Record what is played", "Record: keeps what you play, so that you can save it afterwards.",
                        &Settings::isRetroRecordEnabled, &post<&Commands::postEnableRetroRecord>};

constexpr Switch LITE_STACK_NOTES{
    "Stack Notes", "Stack Notes: such a host sends the note-off of a repeated note only once all its keys are up.",
    &Settings::getLiteStackNotes, &post<&Commands::postSetLiteStackNotes>};

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
