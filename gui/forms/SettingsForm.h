#pragma once

#include <QWidget>
#include <functional>
#include <optional>
#include <vector>

#include "gui/forms/FormField.h"
#include "gui/framework/Wheel.h"

class QGridLayout;
class QLabel;

namespace Gui
{
class ComboBox;
class EditBox;
class GuiContext;
}  // namespace Gui

namespace Gui::Forms
{
/// Shows the settings of one or more records of a kind, a row for each field. Where records differ, the control is
/// blank and grey; a change goes to all of them. Numbers also change by the wheel, by Up and Down and by dragging their
/// names, with Shift in wide steps, each record from its own value. A value outside its range becomes the nearest one
/// inside, and the row says so. The GUI thread.
class SettingsForm final : public QWidget
{
public:
    /// Rows go from top to bottom through `columnCount` columns.
    explicit SettingsForm(GuiContext& owner, QWidget* parent = nullptr, int columnCount = 1);

    /// Called after the user has changed a field of all records: its name.
    std::function<void(const QString& name)> onChange;
    /// If it is set, it is called with what changes a field of all records, and calls that.
    std::function<void(const QString& name, const std::function<void()>& set)> execute;
    /// What was wrong with a value that the user gave a field.
    std::function<void(const QString& remark)> onRemark;

    /// The fields of each record, the same ones in the same order. The records must outlive the form, or the next call.
    void setRecords(std::vector<std::vector<FormField>> fieldsOfRecords);
    /// The records have been changed by something else. A text that is being typed stays.
    void follow();

    /// The first field gets the focus.
    void focusFirst();

    /// Whether a name is being dragged: what changes meanwhile is one gesture.
    bool isDragging() const { return dragged.has_value(); }

protected:
    /// The wheel and the arrow keys in a number.
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    class FieldName;
    struct Row {
        FieldName* label;
        EditBox* edit;
        ComboBox* list;  // the same control where it is one, or null
        QLabel* remark;
    };

    void addRow(const FormField& field);
    void showRow(std::size_t row);
    void change(std::size_t row, const QString& typed);
    void change(std::size_t row, const std::function<Taken(const FormField& field, std::size_t record)>& take);
    void step(std::size_t row, int steps, bool wide);
    int getStep(std::size_t row, bool wide) const;
    void drag(std::size_t row, int steps, bool wide);

    GuiContext& context;
    const int columns;
    QGridLayout* grid;
    std::vector<std::vector<FormField>> records;
    std::vector<Row> rows;
    Wheel wheel;
    std::optional<std::vector<QString>> dragged;  // the values of the records where the drag began
};
}  // namespace Gui::Forms
