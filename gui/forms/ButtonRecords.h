#pragma once

#include "gui/forms/BindingFields.h"
#include "gui/forms/BindingRecords.h"

namespace Backend
{
class ButtonConfiguration;
class OrvIF;
struct ButtonFunction;
}  // namespace Backend

namespace Gui::Forms
{
/// The copies of keys or buttons, whose entries have a down and an up function. A note-on that is chosen gets its
/// note-off where there is no up function, and the two stay on the same note.
class ButtonRecords : public BindingRecords
{
public:
    /// Both must outlive it.
    ButtonRecords(Backend::OrvIF& backend, const FieldLists& names) : orv(backend), lists(names) {}

    std::string write(Id id) const override;

    int getRowsPerEntry() const override { return 2; }
    int countEntries(Id id) const override;
    QString nameOfRow(int row) const override;
    std::string getType(Id id, int row) const override;
    QString describeRow(Id id, int row) const override;
    std::vector<FormField> fieldsOfRow(Id id, int row) override;
    void setHelp(Id id, int row, QWidget& control) const override;
    bool hasNote(Id id, int row) const override;

    void choose(Id id, int row, const std::string& typeName) override;
    void raiseNotes(const std::vector<Id>& ids, int row, RisingNotes notes) override;
    bool canAddEntry(Id id) const override;
    void addEntry(Id id) override;
    void removeEntry(Id id, int entry) override;
    void moveEntry(Id id, int entry, int by) override;

protected:
    /// Null for one that the program does not have.
    virtual const Backend::ButtonConfiguration* find(Id id) const = 0;
    /// Makes one without entries where there is none.
    virtual Backend::ButtonConfiguration& at(Id id) = 0;

    const FieldLists& getLists() const { return lists; }

private:
    const Backend::ButtonFunction* findEntry(Id id, int row) const;
    Backend::FunctionManagement::Function* findFunction(Id id, int row) const;

    Backend::OrvIF& orv;
    const FieldLists& lists;
};
}  // namespace Gui::Forms
