#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "gui/forms/SectionRecords.h"

class QWidget;

namespace Gui::Forms
{
/// How notes that are given to several records rise from one to the next.
enum class RisingNotes { same, semitones, majorScale, minorScale, pentatonicScale };

/// The records of a section that execute functions or translations: keys, buttons, MIDI events. A record has a list of
/// entries, and an entry one or more rows with a binding each. The GUI thread.
class BindingRecords : public SectionRecords
{
public:
    using Id = Backend::RecordId;

    virtual int getRowsPerEntry() const { return 1; }
    /// At least 1: a record without entries shows an empty one.
    virtual int countEntries(Id id) const = 0;
    /// "1 down".
    virtual QString nameOfRow(int row) const = 0;

    // Of a row, which may be behind the last one: it has no binding

    /// The name of the binding's type, NO_FUNCTION for none.
    virtual std::string getType(Id id, int row) const = 0;
    virtual QString describeRow(Id id, int row) const = 0;
    /// The settings of the binding and of its entry, which are valid as long as `getRevision` returns the same number.
    virtual std::vector<FormField> fieldsOfRow(Id id, int row) = 0;
    /// Makes the sentence of the binding the help of this control.
    virtual void setHelp(Id id, int row, QWidget& control) const = 0;
    /// Whether it has a note, see `raiseNotes`.
    virtual bool hasNote(Id, int) const { return false; }

    // What changes the copies, see `RecordEditor::change`

    /// Another binding, with the values that a picker starts with.
    virtual void choose(Id id, int row, const std::string& typeName) = 0;
    /// Gives the rows the notes that follow that of the first record. All of them have one.
    virtual void raiseNotes(const std::vector<Id>&, int, RisingNotes) {}

    /// At the end, behind an entry that is used.
    virtual bool canAddEntry(Id id) const = 0;
    virtual void addEntry(Id id) = 0;
    /// An unknown one is ignored, in both.
    virtual void removeEntry(Id id, int entry) = 0;
    virtual void moveEntry(Id id, int entry, int by) = 0;

    /// Another number whenever bindings were replaced by others.
    std::uint64_t getRevision() const { return revision; }

protected:
    void bindingsReplaced() { ++revision; }

private:
    std::uint64_t revision = 0;
};
}  // namespace Gui::Forms
