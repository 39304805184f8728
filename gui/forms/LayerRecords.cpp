#include "gui/forms/LayerRecords.h"

#include <QObject>
#include <algorithm>

#include "gui/forms/FieldMaker.h"

namespace Gui::Forms
{
using namespace Backend;
using ArpeggioManagement::ArpeggioSetting;
using Layers::Layer;
using MidiEngine::Note;
using SequenceManagement::SequenceSetting;

namespace
{
constexpr FormField::Range DATA{0, 127};
constexpr int PITCH_CLASSES = 12;
constexpr FormField::Range PULSES{1, 30720};

/// A member of the layer, as the type that a field has.
template <class Value, class Member>
FieldMaker::Access<Value> access(Layer& layer, Member Layer::*member)
{
    return {[&layer, member] { return static_cast<Value>(layer.*member); },
            [&layer, member](Value value) { layer.*member = static_cast<Member>(value); }};
}

FieldMaker::Access<int> note(Layer& layer, Note Layer::*member)
{
    return {[&layer, member] { return (layer.*member).getNumber(); },
            [&layer, member](int number) { layer.*member = Note(number); }};
}

// --- the arpeggio and its sequence

FieldMaker::Access<int> arpeggioType(Layer& layer)
{
    return {[&layer] { return layer.arpeggio ? static_cast<int>(layer.arpeggio->type) : -1; },
            [&layer](int type) {
                if (type < 0) return layer.arpeggio.reset();
                if (!layer.arpeggio) layer.arpeggio.emplace();
                layer.arpeggio->type = static_cast<ArpeggioSetting::Type>(type);
            }};
}

FieldMaker::Access<int> arpeggioLength(Layer& layer, std::int32_t ArpeggioSetting::*member)
{
    return {[&layer, member] { return layer.arpeggio.value_or(ArpeggioSetting{}).*member; },
            [&layer, member](int pulses) {
                if (layer.arpeggio) (*layer.arpeggio).*member = pulses;
            }};
}

constexpr int NO_SEQUENCE = -2;
constexpr int LOCAL_SEQUENCE = -1;

/// A preset that is chosen has a rest until the backend reports what is in its file.
FieldMaker::Access<int> sequence(Layer& layer, const QStringList& presets)
{
    return {[&layer, presets] {
                const SequenceSetting& setting = layer.sequenceSetting;
                if (setting.nodes.empty()) return NO_SEQUENCE;
                if (setting.preset.empty()) return LOCAL_SEQUENCE;
                const auto preset = presets.indexOf(QString::fromStdString(setting.preset));
                return preset < 0 ? static_cast<int>(presets.size()) : static_cast<int>(preset);
            },
            [&layer, presets](int chosen) {
                SequenceSetting& setting = layer.sequenceSetting;
                setting.preset = chosen < 0 || chosen >= presets.size() ? "" : presets[chosen].toStdString();
                if (chosen == NO_SEQUENCE)
                    setting.nodes.clear();
                else if (setting.nodes.empty())
                    setting.nodes = {{{.rest = true}}};
            }};
}

void addArpeggio(FieldMaker& make, Layer& layer, const FieldLists& lists)
{
    const auto hasArpeggio = [&layer] { return layer.arpeggio.has_value(); };
    make.addList(QObject::tr("Arpeggio"),
                 {{QObject::tr("Off"), -1},
                  {QObject::tr("Chord"), static_cast<int>(ArpeggioSetting::Type::chord)},
                  {QObject::tr("Up"), static_cast<int>(ArpeggioSetting::Type::up)},
                  {QObject::tr("Down"), static_cast<int>(ArpeggioSetting::Type::down)},
                  {QObject::tr("Up + Down"), static_cast<int>(ArpeggioSetting::Type::upDown)}},
                 arpeggioType(layer));
    make.addLength(QObject::tr("Beat"), PULSES, arpeggioLength(layer, &ArpeggioSetting::beat), hasArpeggio);
    make.addLength(QObject::tr("Length"), PULSES, arpeggioLength(layer, &ArpeggioSetting::length), hasArpeggio);

    FieldMaker::Choices sequences{{QObject::tr("Off"), NO_SEQUENCE}, {QStringLiteral("--local--"), LOCAL_SEQUENCE}};
    QStringList presets = lists.sequences;
    const QString now = QString::fromStdString(layer.sequenceSetting.preset);
    if (!now.isEmpty() && !presets.contains(now)) presets << now;
    for (const QString& preset : presets) sequences.push_back({preset, static_cast<int>(sequences.size()) - 2});
    make.addList(QObject::tr("Sequence"), std::move(sequences), sequence(layer, presets));
    make.addSwitch(QObject::tr("Sequence: notes"), {[&layer] { return layer.sequenceSetting.useNote; },
                                                    [&layer](bool on) { layer.sequenceSetting.useNote = on; }});
    make.addSwitch(QObject::tr("Sequence: velocities"),
                   {[&layer] { return layer.sequenceSetting.useVelocity; },
                    [&layer](bool on) { layer.sequenceSetting.useVelocity = on; }});
    make.addText(QObject::tr("Sequence: text"), {},
                 {[&layer] { return layer.sequenceSetting.getSequenceText(); },
                  [&layer](const std::string& text) { layer.sequenceSetting.setSequenceText(text); }});
}
}  // namespace

std::vector<FormField> fieldsOf(Layer& layer, const FieldLists& lists)
{
    FieldMaker make(lists);
    make.addSwitch(QObject::tr("Mute"), access<bool>(layer, &Layer::mute));
    make.addZone(access<int>(layer, &Layer::zone));
    make.addOutput(QObject::tr("Output"), access<int>(layer, &Layer::output));
    make.addChannel(false, {[&layer] { return std::max<int>(-1, layer.channel); },
                            [&layer](int channel) { layer.channel = static_cast<std::int8_t>(channel); }});
    make.addChange(QObject::tr("Transpose"), DATA, access<RelativeFixedValue>(layer, &Layer::transpose), {},
                   PITCH_CLASSES);
    FieldMaker::Choices keys{{QObject::tr("Off"), -1}};
    for (int key = 0; key < PITCH_CLASSES; ++key)
        keys.push_back({QString::fromStdString(MidiEngine::getNoteName(key, MidiEngine::Octave::without)), key});
    make.addList(QObject::tr("Key"), std::move(keys), note(layer, &Layer::key));
    make.addChange(QObject::tr("Velocity"), DATA, access<RelativeFixedValue>(layer, &Layer::velocity));
    make.addFraction(QObject::tr("Compress"), access<Fraction>(layer, &Layer::compress));
    make.addRange(QObject::tr("Lowest note"), QObject::tr("Highest note"), {.isNote = true},
                  note(layer, &Layer::minNote), note(layer, &Layer::maxNote));
    make.addRange(QObject::tr("Lowest velocity"), QObject::tr("Highest velocity"), {},
                  access<int>(layer, &Layer::minVelocity), access<int>(layer, &Layer::maxVelocity));
    make.addSwitch(QObject::tr("Mono"), access<bool>(layer, &Layer::mono));
    make.addSwitch(QObject::tr("Note stack"), access<bool>(layer, &Layer::useNoteStack));
    make.addValue(QObject::tr("Toggle"), access<NoteToggle>(layer, &Layer::toggle));
    addArpeggio(make, layer, lists);
    return make.take();
}

const SectionRecords::Kind& LayerRecords::getKind() const
{
    static const Kind KIND{Layer::SECTION, Layer::ELEMENT, Selection::Ids::indices, QObject::tr("layer"),
                           QObject::tr("layers")};
    return KIND;
}

QString LayerRecords::describe(RecordId id) const
{
    const Layer& layer = at(id);
    const QString line = QString::fromStdString(layer.getLayerString(lists.outputs.value(layer.output).toStdString()));
    return layer.mute ? QObject::tr("(mute) %1").arg(line) : line;
}
}  // namespace Gui::Forms
