#include "gui/screens/midiinput/EventRecords.h"

#include <QObject>
#include <algorithm>
#include <sstream>
#include <utility>

#include "backend/bindings/functions/HelpTexts.h"
#include "backend/bindings/translations/TranslationFactories.h"
#include "backend/model/PresetSections.h"
#include "backend/model/RecordFields.h"
#include "backend/xml/XmlDocument.h"
#include "gui/forms/FieldMaker.h"
#include "gui/framework/Properties.h"
#include "gui/screens/midiinput/EventText.h"

namespace Gui::MidiInput
{
using namespace Backend;
using Backend::MidiInput::TranslationManagement::createTranslation;
using Backend::MidiInput::TranslationManagement::DO_NOTHING;
using Backend::MidiInput::TranslationManagement::UNCHANGED;

namespace
{
std::string textOf(const EventRecords::Entry& entry)
{
    std::ostringstream out;
    entry.writeXml(out, 0);
    return out.str();
}

std::vector<RecordId> idsOf(const EventRecords::Entries& entries)
{
    std::vector<RecordId> ids;
    const auto iterator = entries.createIterator();
    while (const EventRecords::Entry* entry = iterator->next()) ids.push_back(EventRecords::idOf(entry->getEvent()));
    return ids;
}

Forms::FieldMaker::Access<int> ofCondition(Backend::MidiInput::TranslationManagement::Translation& translation,
                                           auto MidiTranslationCondition::*member)
{
    return {[&translation, member] { return static_cast<int>(translation.getCondition().*member); },
            [&translation, member](int value) {
                MidiTranslationCondition condition = translation.getCondition();
                condition.*member = static_cast<std::remove_reference_t<decltype(condition.*member)>>(value);
                translation.setCondition(condition);
            }};
}
}  // namespace

// --- the copies

/// Where nothing has changed the translations stay, because fields are bound to them.
void EventRecords::take(const Entries& reported)
{
    const auto ids = idsOf(reported);
    const auto isSame = [&](Id id) { return write(id) == textOf(*reported.findElement(eventOf(id))); };
    if (ids == getIds() && std::ranges::all_of(ids, isSame)) return;
    entries = reported;
    bindingsReplaced();
}

EventRecords::Entry::Translations& EventRecords::translationsOf(Id id)
{
    const MidiEvent event = eventOf(id);
    if (entries.findElement(event) == nullptr) entries.put(event, Entry(event));
    return entries.findElement(event)->getTranslations();
}

EventRecords::Translation* EventRecords::findTranslation(Id id, int row) const
{
    const Entry* const entry = find(id);
    const auto index = static_cast<std::size_t>(row);
    return entry == nullptr || index >= entry->getTranslations().size() ? nullptr
                                                                        : entry->getTranslations()[index].get();
}

void EventRecords::move(const std::vector<Id>& from, const std::vector<Id>& to)
{
    std::vector<Entry> moved;
    for (std::size_t i = 0; i < from.size(); ++i) {
        moved.emplace_back(eventOf(to[i]));
        moved.back().getTranslations() = std::move(translationsOf(from[i]));
        entries.remove(eventOf(from[i]));
    }
    for (Entry& entry : moved) entries.put(MidiEvent(entry.getEvent()), std::move(entry));
    bindingsReplaced();
}

// --- the records

const EventRecords::Kind& EventRecords::getKind() const
{
    static const Kind KIND{.section = PresetSections::MIDI_INPUT.rootElement,
                           .element = "MidiEvent",
                           .ids = Forms::Selection::Ids::fixed,
                           .one = QObject::tr("event"),
                           .many = QObject::tr("events"),
                           .canBeDoubled = false};
    return KIND;
}

std::vector<RecordId> EventRecords::getIds() const { return idsOf(entries); }

std::string EventRecords::write(Id id) const
{
    const Entry* const entry = find(id);
    return entry == nullptr ? "" : textOf(*entry);
}

QString EventRecords::describe(Id id) const
{
    QStringList rows;
    for (int row = 0; row < countEntries(id); ++row) rows << describeRow(id, row);
    return EventText::describe(eventOf(id), inputs) + QStringLiteral(": ") + rows.join(QStringLiteral("; "));
}

QString EventRecords::nameOf(Id id) const { return getKind().one + ' ' + EventText::kindOf(eventOf(id).message); }

std::vector<RecordEdit> EventRecords::makeAdditions(std::vector<Fields> added, const Forms::Selection&) const
{
    std::vector<RecordEdit> edits;
    for (Fields& fields : added) {
        const std::string text = RecordFields::write(getKind().element, fields);
        const MidiEvent event = MidiEvent::fromXml(XmlDocument(text, XmlDocument::Source::text).getRoot());
        edits.push_back({.kind = RecordEdit::Kind::add, .id = idOf(event), .fields = std::move(fields)});
    }
    return edits;
}

// --- the translations of a record

int EventRecords::countEntries(Id id) const
{
    const Entry* const entry = find(id);
    return entry == nullptr ? 1 : std::max(1, static_cast<int>(entry->getTranslations().size()));
}

std::string EventRecords::getType(Id id, int row) const
{
    const Entry* const entry = find(id);
    return std::string((entry == nullptr ? Entry() : *entry).getTranslationType(static_cast<std::size_t>(row)));
}

QString EventRecords::describeRow(Id id, int row) const
{
    const Translation* const translation = findTranslation(id, row);
    return EventText::describe(translation != nullptr ? *translation : *createTranslation(getType(id, row)), lists);
}

std::vector<Forms::FormField> EventRecords::fieldsOfRow(Id id, int row)
{
    using Operand = MidiTranslationCondition::Operand;
    using Comparison = MidiTranslationCondition::Comparison;
    Translation* const translation = findTranslation(id, row);
    if (translation == nullptr) return {};
    Forms::FieldMaker make(lists);
    const auto isUsed = [translation] { return translation->getCondition().operand != Operand::off; };
    make.addList(QObject::tr("Condition"),
                 {{QObject::tr("Always"), static_cast<int>(Operand::off)},
                  {QObject::tr("If D1"), static_cast<int>(Operand::d1)},
                  {QObject::tr("If D2"), static_cast<int>(Operand::d2)}},
                 ofCondition(*translation, &MidiTranslationCondition::operand));
    make.addList(QObject::tr("Comparison"),
                 {{QObject::tr("is less than"), static_cast<int>(Comparison::lt)},
                  {QObject::tr("is greater than"), static_cast<int>(Comparison::gt)},
                  {QObject::tr("is at most"), static_cast<int>(Comparison::le)},
                  {QObject::tr("is at least"), static_cast<int>(Comparison::ge)},
                  {QObject::tr("is"), static_cast<int>(Comparison::eq)},
                  {QObject::tr("is not"), static_cast<int>(Comparison::ne)}},
                 ofCondition(*translation, &MidiTranslationCondition::comparison), isUsed);
    make.addNumber(QObject::tr("Compared with"), {}, ofCondition(*translation, &MidiTranslationCondition::value),
                   isUsed);
    std::vector<Forms::FormField> fields = make.take();
    for (Forms::FormField& field : Forms::fieldsOf(*translation, lists)) fields.push_back(std::move(field));
    return fields;
}

void EventRecords::setHelp(Id id, int row, QWidget& control) const
{
    const Translation* const translation = findTranslation(id, row);
    const QString text =
        translation == nullptr ? QString() : QString::fromStdString(helpText(translation->getHelpId()));
    Property::setHelp(control, text);
}

// --- changes of the copies

void EventRecords::choose(Id id, int row, const std::string& typeName)
{
    auto chosen = createTranslation(typeName);
    if (chosen == nullptr) return;
    auto& translations = translationsOf(id);
    const auto index = static_cast<std::size_t>(row);
    while (translations.size() <= index)
        translations.push_back(createTranslation(translations.empty() ? UNCHANGED : DO_NOTHING));
    chosen->setCondition(translations[index]->getCondition());
    translations[index] = std::move(chosen);
    bindingsReplaced();
}

bool EventRecords::canAddEntry(Id id) const { return getType(id, countEntries(id) - 1) != DO_NOTHING; }

void EventRecords::addEntry(Id id) { choose(id, countEntries(id), std::string(DO_NOTHING)); }

void EventRecords::removeEntry(Id id, int entry)
{
    if (findTranslation(id, entry) == nullptr) return;
    auto& translations = translationsOf(id);
    translations.erase(translations.begin() + entry);
    if (translations.empty()) entries.remove(eventOf(id));
    bindingsReplaced();
}

void EventRecords::moveEntry(Id id, int entry, int by)
{
    if (findTranslation(id, entry) == nullptr || findTranslation(id, entry + by) == nullptr) return;
    auto& translations = translationsOf(id);
    std::swap(translations[static_cast<std::size_t>(entry)], translations[static_cast<std::size_t>(entry + by)]);
    bindingsReplaced();
}
}  // namespace Gui::MidiInput
