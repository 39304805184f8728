#include "gui/forms/FunctionCaption.h"

#include <QRegularExpression>
#include <QStringList>
#include <algorithm>
#include <sstream>

#include "backend/bindings/functions/FunctionEnumerator.h"
#include "backend/bindings/functions/FunctionSettingsTypes.h"
#include "backend/model/ButtonConfiguration.h"
#include "backend/values/Note.h"

namespace Gui::Forms::FunctionCaption
{
using namespace Backend;
using namespace Backend::FunctionManagement;
using MidiEngine::Note;

namespace
{
struct ShortName {
    std::string_view type;
    const char* text;
};

// clang-format off
constexpr ShortName SHORT_NAMES[] = {
    {"MidiNoteOff", "Off"}, {"MidiKeyPressure", "KP"}, {"MidiControllerChange", "CC"}, {"ProgramChange", "PC"},
    {"MidiChannelPressure", "Press"}, {"MidiPitchBend", "Bend"}, {"MidiSongPosition", "Pos"},
    {"MidiSongSelect", "Song"}, {"MidiBusSelect", "Bus"}, {"MidiTuneRequest", "Tune"}, {"MidiTimingTick", "Tick"},
    {"MidiStartSong", "Start"}, {"MidiContinueSong", "Cont"}, {"MidiStopSong", "Stop"}, {"MidiActiveSensing", "Sense"},
    {"MidiSystemReset", "SysRst"}, {"MidiEndOfSysEx", "EOX"},
    {"ShowSystem", "Main"}, {"ShowHelp", "Help"}, {"ShowDisplay", "Display"}, {"ShowOscillator", "Oscs"},
    {"ShowJoystick", "Joy"}, {"ShowMidiInput", "MIDI"}, {"ShowComputerInput", "Keys"}, {"ShowControl", "Ctrls"},
    {"ShowOutput", "Output"}, {"ShowCC", "CCs"}, {"ShowZone", "Zones"}, {"ShowLayer", "Layers"},
    {"ShowSaveDialog", "Save"}, {"MoveWindow", "Move"},
    {"LoadOscillatorPreset", "Preset"}, {"LoadJoystickInputPreset", "Preset"}, {"LoadMidiInputPreset", "Preset"},
    {"LoadComputerInputPreset", "Preset"}, {"LoadControlPreset", "Preset"}, {"LoadLayerPreset", "Preset"},
    {"ChangeProgram", "Prog"}, {"ShowProgramMenu", "Progs"}, {"ChangeDefaultMidiOutput", "Out"},
    {"ShowDefaultMidiOutputMenu", "Outs"}, {"ChangeMidiThru", "Thru"}, {"ChangeGlobalKeyboard", "Global"},
    {"ChangeTempo", "Tempo"}, {"ResetOrv", "Reset"}, {"TapTempo", "Tap"},
    {"DataSelectOsc", "Osc"}, {"ChangeOscPlaying", "Run"}, {"ChangeOscSpeed", "Spd"},
    {"SelectControl", "Sel"}, {"SetWidgetFocus", "Foc"}, {"ChangeControl", "Ctl"}, {"SendControlData", "Send"},
    {"SelectZone", "Zone"}, {"ChangeZoneTranspose", "ZT"}, {"DataSelectLayer", "Lay"}, {"EditSelectLayer", "Edit"},
    {"ChangeLayerTranspose", "LT"}, {"ChangeLayerVelocity", "LV"}, {"ChangeLayerMute", "Mute"},
    {"ChangeLayerMono", "Mono"}, {"ChangeLayerSolo", "Solo"}, {"ChangeLayerNoteToggle", "Togg"},
};
// clang-format on

QString toText(const std::string& text) { return QString::fromStdString(text); }

/// The settings of a function as this type; null if they are of another type.
template <class Settings>
const Settings* as(const Function& function)
{
    return dynamic_cast<const Settings*>(&function);
}

bool isNote(MidiEngine::MessageType status)
{
    return status == MidiEngine::MessageType::noteOn || status == MidiEngine::MessageType::noteOff;
}

QString noteOf(const MidiSettingsType& midi) { return toText(Note(midi.getD1()).toXmlString()); }

/// In which direction; the percentage if it is not the whole way.
QString bendOf(int value)
{
    constexpr int MIDDLE = 8192;
    constexpr int PERCENT = 100;
    const int percent = (value - MIDDLE) * PERCENT / (value > MIDDLE ? MIDDLE - 1 : MIDDLE);
    if (percent == PERCENT) return QStringLiteral("+");
    if (percent == -PERCENT) return QStringLiteral("-");
    return value > MIDDLE ? QStringLiteral(" +%1").arg(percent) : QStringLiteral(" %1").arg(percent);
}

QString select(const SelectType& which)
{
    switch (which.kind) {
        case SelectType::Kind::up:
            return QStringLiteral("+");
        case SelectType::Kind::down:
            return QStringLiteral("-");
        case SelectType::Kind::specific:
            return ' ' + QString::number(which.value + 1);  // shown from 1
        default:
            return {};
    }
}

QString direction(const SelectControlType& which)
{
    switch (which.kind) {
        case SelectControlType::Kind::up:
            return QStringLiteral(" up");
        case SelectControlType::Kind::down:
            return QStringLiteral(" dn");
        case SelectControlType::Kind::left:
            return QStringLiteral(" lf");
        case SelectControlType::Kind::right:
            return QStringLiteral(" rt");
        default:
            return {};
    }
}

/// A relative value with its sign, a fixed value after a blank.
QString amount(const RelativeFixedValue& value)
{
    const QString text = toText(value.toXmlString());
    return value.relative || text.isEmpty() ? text : ' ' + text;
}

/// The value of the function.
QString suffixOf(const Function& function)
{
    if (const auto* midi = as<MidiSettingsType>(function)) {
        if (isNote(midi->getStatus())) return ' ' + noteOf(*midi);
        if (midi->getStatus() == MidiEngine::MessageType::pitchBend) return bendOf(midi->getD1());
        const bool numbered = midi->getStatus() == MidiEngine::MessageType::controllerChange ||
                              midi->getStatus() == MidiEngine::MessageType::programChange;
        return numbered ? QString::number(midi->getD1()) : QString();
    }
    if (const auto* item = as<SelectSettingsType>(function))
        return item->hasValue() ? amount(item->getValue()) : select(item->getSelectType());
    if (const auto* control = as<SelectControlSettingsType>(function))
        return control->hasValue() ? amount(control->getValue()) : direction(control->getSelectControlType());
    return {};
}

bool isNoteOn(const Function& function)
{
    const auto* midi = as<MidiSettingsType>(function);
    return midi != nullptr && midi->getStatus() == MidiEngine::MessageType::noteOn;
}

/// The names that the dialogs show.
class DisplayNames final : public FunctionEnumerator
{
public:
    DisplayNames() { enumerateFunctions(*this); }

    void addFunction(const FunctionInfo& function) override { functions.push_back(function); }

    QString get(std::string_view type) const
    {
        const auto found = std::ranges::find(functions, type, &FunctionInfo::typeName);
        const std::string_view name = found == functions.end() ? type : found->displayName;
        return QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
    }

private:
    std::vector<FunctionInfo> functions;
};

/// Counted from 0 in files and from 1 on the screen; -1 is the default, or none.
bool isCounted(const QString& name) { return QStringList{"zone", "output", "channel"}.contains(name); }

/// Whether the attribute is the number of an item of a list.
bool isSpecific(const Function& function, const QString& name)
{
    const auto* item = as<SelectSettingsType>(function);
    return name == QLatin1String("type") && item != nullptr && item->getSelectType().kind == SelectType::Kind::specific;
}

/// The parameters that are set.
QStringList parametersOf(const Function& function)
{
    std::ostringstream out;
    function.writeXml(out, 0);
    static const QRegularExpression attribute(QStringLiteral("(\\w+)=\"([^\"]+)\""));
    QStringList parameters;
    for (auto found = attribute.globalMatch(toText(out.str())); found.hasNext();) {
        const auto match = found.next();
        const QString name = match.captured(1);
        const QString value = match.captured(2);
        if (!isCounted(name) && !isSpecific(function, name))
            parameters << name + ' ' + value;
        else if (value.toInt() >= 0)
            parameters << name + ' ' + QString::number(value.toInt() + 1);
    }
    return parameters;
}

void addLine(QStringList& lines, const QString& when, const std::unique_ptr<Function>& function)
{
    if (function != nullptr && function->getType() != NO_FUNCTION) lines << when + describe(*function);
}
}  // namespace

QString shortNameOf(const Function& function)
{
    if (isNoteOn(function)) return noteOf(*as<MidiSettingsType>(function));
    const auto* const row = std::ranges::find(SHORT_NAMES, function.getType(), &ShortName::type);
    return row == std::end(SHORT_NAMES) ? QString() : QString::fromLatin1(row->text) + suffixOf(function);
}

int soundingNoteOf(const Function& function, const Zones::ZoneMap& zones)
{
    if (!isNoteOn(function)) return -1;
    const auto& midi = *as<MidiSettingsType>(function);
    const auto* zone = zones.findElement(midi.getZone());
    return zone == nullptr ? midi.getD1() : MidiEngine::foldNote(midi.getD1() + zone->transpose);
}

QString describe(const Function& function)
{
    static const DisplayNames names;
    const QString name = names.get(function.getType());
    const QStringList parameters = parametersOf(function);
    return parameters.isEmpty() ? name : name + QStringLiteral(": ") + parameters.join(QStringLiteral(", "));
}

QString captionOf(const ButtonConfiguration& button, const Zones::ZoneMap& zones)
{
    QStringList captions;
    for (const ButtonFunction& entry : button.getEntries()) {
        const bool goesDown = entry.downFunction != nullptr && entry.downFunction->getType() != NO_FUNCTION;
        const auto& function = goesDown ? entry.downFunction : entry.upFunction;
        const int note = function == nullptr ? -1 : soundingNoteOf(*function, zones);
        const QString caption = note >= 0             ? toText(Note(note).toXmlString())
                                : function == nullptr ? QString()
                                                      : shortNameOf(*function);
        if (!caption.isEmpty() && !captions.contains(caption)) captions << caption;
    }
    return captions.join(' ');
}

QString describe(const ButtonConfiguration& button)
{
    QStringList lines;
    for (const ButtonFunction& entry : button.getEntries()) {
        addLine(lines, entry.keepSending ? QStringLiteral("Down and held: ") : QStringLiteral("Down: "),
                entry.downFunction);
        addLine(lines, QStringLiteral("Up: "), entry.upFunction);
    }
    return lines.join('\n');
}

PlayedNote firstNoteOf(const ButtonConfiguration& button, const Zones::ZoneMap& zones)
{
    PlayedNote played;
    button.forEachFunction([&](const Function& function) {
        if (played.note < 0 && isNoteOn(function))
            played = {soundingNoteOf(function, zones), as<MidiSettingsType>(function)->getZone()};
    });
    return played;
}
}  // namespace Gui::Forms::FunctionCaption
