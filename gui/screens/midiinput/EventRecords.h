#pragma once

#include <QStringList>

#include "backend/model/MidiEventConfigurationMap.h"
#include "gui/forms/BindingFields.h"
#include "gui/forms/BindingRecords.h"

namespace Gui::MidiInput
{
/// The entries of incoming MIDI events as the window knows them, those of one input and one channel before those of
/// all. The GUI thread.
class EventRecords final : public Forms::BindingRecords
{
public:
    using MidiEvent = Backend::MidiInput::MidiEvent;
    using Entry = Backend::MidiInput::MidiEventConfiguration;
    using Entries = Backend::MidiInput::MidiEventConfigurationMap;

    /// Both must outlive it: what fields offer, and the names of the inputs.
    EventRecords(const Forms::FieldLists& names, const QStringList& inputNames) : lists(names), inputs(inputNames) {}

    static MidiEvent eventOf(Id id) { return MidiEvent::fromPacked(static_cast<std::uint32_t>(id)); }
    static Id idOf(const MidiEvent& event) { return static_cast<Id>(event.getPacked()); }

    // The copies
    void take(const Entries& reported);
    const Entries& getEntries() const { return entries; }
    const Entry* find(Id id) const { return entries.findElement(eventOf(id)); }
    /// An entry that plays its event as it is.
    void add(Id id) { choose(id, 0, "Unchanged"); }
    /// Gives entries other events, which no other entries have.
    void move(const std::vector<Id>& from, const std::vector<Id>& to);

    const Kind& getKind() const override;
    std::vector<Id> getIds() const override;
    std::string write(Id id) const override;
    /// "In 1, channel 3, Note On C4: Unchanged, D1 +12".
    QString describe(Id id) const override;
    /// "event Note On C4".
    QString nameOf(Id id) const override;
    /// None: what the translations have is in `fieldsOfRow`, the event in `EventForm`.
    std::vector<Forms::FormField> fieldsOf(Id) override { return {}; }
    /// Those that are pasted have the events that they had, in place of present entries.
    std::vector<Backend::RecordEdit> makeAdditions(std::vector<Backend::Fields> added,
                                                   const Forms::Selection& selection) const override;

    int countEntries(Id id) const override;
    QString nameOfRow(int row) const override { return QString::number(row + 1); }
    std::string getType(Id id, int row) const override;
    QString describeRow(Id id, int row) const override;
    /// The condition first.
    std::vector<Forms::FormField> fieldsOfRow(Id id, int row) override;
    void setHelp(Id id, int row, QWidget& control) const override;

    void choose(Id id, int row, const std::string& typeName) override;
    bool canAddEntry(Id id) const override;
    /// One that does nothing.
    void addEntry(Id id) override;
    /// With the last one the record is gone.
    void removeEntry(Id id, int entry) override;
    void moveEntry(Id id, int entry, int by) override;

private:
    using Translation = Backend::MidiInput::TranslationManagement::Translation;

    Entry::Translations& translationsOf(Id id);
    Translation* findTranslation(Id id, int row) const;

    const Forms::FieldLists& lists;
    const QStringList& inputs;
    Entries entries;
};
}  // namespace Gui::MidiInput
