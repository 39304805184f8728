#include "gui/screens/midiinput/EventText.h"

#include <QObject>
#include <map>

#include "backend/bindings/translations/TranslationEnumerator.h"
#include "backend/bindings/translations/TranslationFactories.h"
#include "backend/model/MidiEventConfigurationMap.h"
#include "gui/forms/BindingFields.h"

namespace Gui::MidiInput::EventText
{
using namespace Backend;
using Backend::MidiInput::MidiEvent;
using Backend::MidiInput::MidiEventConfiguration;
using Backend::MidiInput::TranslationManagement::Translation;
using MidiEngine::MessageType;
using MidiEngine::MidiMessage;
using MidiEngine::OrvMidiMessage;

namespace
{
QString noteOf(const MidiMessage& message)
{
    return QString::fromStdString(MidiEngine::Note(message.getD1()).toXmlString());
}

/// "C4 100", "C4 off", "Control Change 7: Channel Volume 90", with output, channel and zone where it has its own.
QString shortTextOf(const OrvMidiMessage& event, const QStringList& outputs)
{
    const MidiMessage& message = event.getMidiMessage();
    QString text = message.isNoteOff()  ? QObject::tr("%1 off").arg(noteOf(message))
                   : message.isNoteOn() ? noteOf(message) + ' ' + valueOf(message)
                                        : (kindOf(message) + ' ' + valueOf(message)).trimmed();
    if (!event.isDefaultChannel() && !message.isSystem())
        text += QObject::tr(" on channel %1").arg(event.getChannel() + 1);
    if (!event.isDefaultOutput()) text += QObject::tr(" to %1").arg(outputs.value(event.getOutput()));
    if (event.getZone() != OrvMidiMessage::DEFAULT_ZONE) text += QObject::tr(" in zone %1").arg(event.getZone() + 1);
    return text;
}

struct Names final : Backend::MidiInput::TranslationManagement::TranslationEnumerator {
    void addTranslation(const FunctionInfo& translation) override
    {
        byType.emplace(translation.typeName, QString::fromStdString(std::string(translation.displayName)));
    }
    std::map<std::string_view, QString> byType;
};

/// As the picker has it.
QString nameOf(const Translation& translation)
{
    static const Names NAMES = [] {
        Names names;
        enumerateTranslations(names);
        return names;
    }();
    return NAMES.byType.at(translation.getType());
}

QString conditionOf(const MidiTranslationCondition& condition)
{
    constexpr const char* SIGNS[] = {"<", ">", "\u2264", "\u2265", "=", "\u2260"};  // in the order of the comparisons
    if (condition.operand == MidiTranslationCondition::Operand::off) return {};
    return QObject::tr("If %1 %2 %3: ")
        .arg(condition.operand == MidiTranslationCondition::Operand::d1 ? QStringLiteral("D1") : QStringLiteral("D2"),
             QString::fromUtf8(SIGNS[static_cast<std::size_t>(condition.comparison)]))
        .arg(condition.value);
}

/// What differs from a new one of the type. A part of a value says enough of that value: "D1: specific 60".
QStringList differencesOf(const Translation& translation, const Forms::FieldLists& lists)
{
    const auto changed = translation.clone();
    const auto usual = Backend::MidiInput::TranslationManagement::createTranslation(translation.getType());
    QStringList parts;
    const auto fields = Forms::fieldsOf(*changed, lists);
    const auto usualFields = Forms::fieldsOf(*usual, lists);
    QString last;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const QString value = fields[i].get();
        if (value == usualFields[i].get() || (fields[i].isUsed && !fields[i].isUsed())) continue;
        if (!parts.isEmpty() && fields[i].name.startsWith(last + ':')) parts.removeLast();
        parts << fields[i].name + ' ' + value;
        last = fields[i].name;
    }
    return parts;
}
}  // namespace

QString inputOf(int input, const QStringList& inputs)
{
    if (input == MidiEvent::ALL) return QObject::tr("All inputs");
    const QString name = inputs.value(input);
    return name.isEmpty() ? QObject::tr("Input %1").arg(input + 1) : name;
}

QString channelOf(int channel)
{
    return channel == MidiEvent::ALL ? QObject::tr("All channels") : QObject::tr("Channel %1").arg(channel + 1);
}

QString kindOf(const MidiMessage& message)
{
    const QString name = QString::fromStdString(message.getEventName());
    if (message.isNote()) return name + ' ' + noteOf(message);
    return message.isControllerChange() ? QString::fromStdString(message.getEventNameWithCcAndNoteDetail()) : name;
}

QString valueOf(const MidiMessage& message)
{
    constexpr int DATA_BYTE = 128;
    switch (message.getStatus()) {
        case MessageType::noteOn:
        case MessageType::noteOff:
        case MessageType::controllerChange:
            return QString::number(message.getD2());
        case MessageType::keyPressure:
            return noteOf(message) + ' ' + QString::number(message.getD2());
        case MessageType::pitchBend:
        case MessageType::songPosition:
            return QString::number(message.getD1() + message.getD2() * DATA_BYTE);
        default:
            return message.getMessageSize() == 0 ? QString() : QString::number(message.getD1());
    }
}

QString describe(const MidiEvent& event, const QStringList& inputs)
{
    const QString input = inputOf(event.input, inputs);
    const QString kind = kindOf(event.message);
    return event.message.isSystem()
               ? input + QStringLiteral(", ") + kind
               : input + QStringLiteral(", ") + channelOf(event.channel).toLower() + QStringLiteral(", ") + kind;
}

QString describe(const Translation& translation, const Forms::FieldLists& lists)
{
    const QString name = conditionOf(translation.getCondition()) + nameOf(translation);
    return (QStringList(name) + differencesOf(translation, lists)).join(QStringLiteral(", "));
}

QString resultOf(const OrvMidiMessage& received, const MidiEventConfiguration* entry, const Forms::FieldLists& lists)
{
    if (entry == nullptr) return QObject::tr("Unchanged");
    QStringList results;
    for (const auto& translation : entry->getTranslations()) {
        if (!translation->getCondition().isTrue(received)) continue;
        OrvMidiMessage result = received;
        switch (translation->getResult()) {
            case Translation::Result::event:
                translation->applyTo(result);
                results << shortTextOf(result, lists.outputs);
                break;
            case Translation::Result::function:
                results << nameOf(*translation);
                break;
            case Translation::Result::nothing:
                break;
        }
    }
    return results.isEmpty() ? QObject::tr("nothing") : results.join(QStringLiteral(", "));
}

QString preview(const OrvMidiMessage& received, const MidiEventConfiguration* entry, const Forms::FieldLists& lists)
{
    OrvMidiMessage plain = received;
    plain.setDefaultChannel(true);
    return shortTextOf(plain, lists.outputs) + QStringLiteral(" \u2192 ") + resultOf(received, entry, lists);
}
}  // namespace Gui::MidiInput::EventText
