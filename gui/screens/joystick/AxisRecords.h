#pragma once

#include <vector>

#include "backend/model/JoystickConfiguration.h"
#include "gui/forms/BindingFields.h"
#include "gui/forms/BindingRecords.h"

namespace Gui::Joystick
{
/// The axes of both joysticks with the events that they send. The GUI thread.
class AxisRecords final : public Forms::BindingRecords
{
public:
    using AxisFunction = Backend::Joystick::AxisFunction;
    using AxisId = Backend::Joystick::JoyAxisElementId;

    /// `names` must outlive it.
    explicit AxisRecords(const Forms::FieldLists& names) : lists(names) {}

    static Id idOf(const AxisId& axis) { return Backend::Joystick::JoystickConfiguration::recordOf(axis); }
    static AxisId axisOf(Id id) { return Backend::Joystick::JoystickConfiguration::axisOf(id); }

    // The copies
    /// In place of the present ones.
    void take(const std::vector<Backend::Joystick::AxisConfiguration>& reported);
    const std::vector<AxisFunction>& getFunctions(Id id) const;
    /// That of a row; one without an event where there is none.
    const AxisFunction& getFunction(Id id, int row) const;
    /// "Bend", "CC 7": of the first event, empty for none.
    QString captionOf(Id id) const;

    const Kind& getKind() const override;
    std::vector<Id> getIds() const override;
    std::string write(Id id) const override;
    QString describe(Id id) const override;
    /// "joystick 1 axis X".
    QString nameOf(Id id) const override;
    /// None: all are in `fieldsOfRow`.
    std::vector<Forms::FormField> fieldsOf(Id) override { return {}; }
    /// As for keys: in place of what the selected axes send.
    std::vector<Backend::RecordEdit> makeAdditions(std::vector<Backend::Fields> added,
                                                   const Forms::Selection& selection) const override;
    /// They stay, without events.
    std::vector<Backend::RecordEdit> makeRemovals(const std::vector<Id>& removed) const override;

    int countEntries(Id id) const override;
    QString nameOfRow(int row) const override { return QString::number(row + 1); }
    /// All are of one type.
    std::string getType(Id, int) const override { return "Axis"; }
    QString describeRow(Id id, int row) const override;
    std::vector<Forms::FormField> fieldsOfRow(Id id, int row) override;
    void setHelp(Id id, int row, QWidget& control) const override;

    void choose(Id, int, const std::string&) override {}
    bool canAddEntry(Id id) const override;
    void addEntry(Id id) override;
    void removeEntry(Id id, int entry) override;
    void moveEntry(Id id, int entry, int by) override;

private:
    std::vector<AxisFunction>& functionsOf(Id id);
    AxisFunction& at(Id id, int row);

    const Forms::FieldLists& lists;
    Backend::Joystick::JoystickConfiguration copies;
};
}  // namespace Gui::Joystick
