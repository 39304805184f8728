#pragma once

#include <QWidget>
#include <functional>
#include <vector>

#include "gui/forms/FormField.h"

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
/// blank and grey; a change goes to all of them. A value outside its range becomes the nearest one inside, and the row
/// says so. The GUI thread.
class SettingsForm final : public QWidget
{
public:
    explicit SettingsForm(GuiContext& owner, QWidget* parent = nullptr);

    /// Called after the user has changed a field of all records: its name.
    std::function<void(const QString& name)> onChange;

    /// The fields of each record, the same ones in the same order. The records must outlive the form, or the next call.
    void setRecords(std::vector<std::vector<FormField>> fieldsOfRecords);
    /// The records have been changed by something else. A text that is being typed stays.
    void follow();

private:
    struct Row {
        QLabel* label;
        EditBox* edit;
        ComboBox* list;  // the same control where it is one, or null
        QLabel* remark;
    };

    void addRow(const FormField& field);
    void showRow(std::size_t row);
    void change(std::size_t row, const QString& typed);

    GuiContext& context;
    QGridLayout* grid;
    std::vector<std::vector<FormField>> records;
    std::vector<Row> rows;
};
}  // namespace Gui::Forms
