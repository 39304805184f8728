#include "gui/forms/SettingsForm.h"

#include <QGridLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <algorithm>

#include "gui/framework/ComboBox.h"
#include "gui/framework/EditBox.h"
#include "gui/framework/Properties.h"

namespace Gui::Forms
{
namespace
{
using Edit = FormField::Edit;

constexpr int CONTROL_WIDTH = 180;  // logical pixels

ComboBox::Typing typingOf(const FormField& field)
{
    return field.edit == Edit::list ? ComboBox::Typing::readOnly : ComboBox::Typing::editable;
}
}  // namespace

SettingsForm::SettingsForm(GuiContext& owner, QWidget* parent)
    : QWidget(parent), context(owner), grid(new QGridLayout(this))
{
    grid->setContentsMargins({});
    grid->setColumnStretch(2, 1);
}

void SettingsForm::setRecords(std::vector<std::vector<FormField>> fieldsOfRecords)
{
    for (const Row& row : rows)
        for (QWidget* part :
             {static_cast<QWidget*>(row.label), static_cast<QWidget*>(row.edit), static_cast<QWidget*>(row.remark)}) {
            part->hide();
            part->deleteLater();  // it may have called
        }
    rows.clear();
    records = std::move(fieldsOfRecords);
    if (records.empty()) return;
    for (const FormField& field : records.front()) addRow(field);
    follow();
}

void SettingsForm::addRow(const FormField& field)
{
    const std::size_t index = rows.size();
    const int line = static_cast<int>(index);
    Row row{.label = new QLabel(field.name), .edit = nullptr, .list = nullptr, .remark = new QLabel};
    if (field.choices.empty()) {
        row.edit = new EditBox;
        row.edit->setProperty(Property::MIN, field.lowest);
        row.edit->setProperty(Property::MAX, field.highest);
        Property::set(*row.edit, Property::SHOW_NOTE_STRING, field.edit == Edit::note);
        Property::set(*row.edit, Property::NOWHEEL, field.edit == Edit::text);
    } else {
        row.list = new ComboBox(context, typingOf(field));
        for (const auto& choice : field.choices) row.list->addEntry({.text = choice.text});
        row.list->onChange = [this, index](int chosen) {
            change(index, records.front()[index].choices[static_cast<std::size_t>(chosen)].text);
        };
        row.edit = row.list;
    }
    row.edit->setMinimumWidth(CONTROL_WIDTH);
    row.edit->setAccessibleName(field.name);
    Property::set(*row.edit, Property::TEXT, true);
    row.label->setBuddy(row.edit);
    Property::setColour(*row.remark, GdiManager::Role::frame);
    // The wheel and the menu report a text at once; a text that is typed is complete when it is left.
    connect(row.edit, &QLineEdit::textEdited, this, [this, index, edit = row.edit](const QString& text) {
        if (!edit->isModified()) change(index, text);
    });
    connect(row.edit, &QLineEdit::editingFinished, this, [this, index, edit = row.edit] {
        if (edit->isModified()) change(index, edit->text());
    });
    grid->addWidget(row.label, line, 0);
    grid->addWidget(row.edit, line, 1);
    grid->addWidget(row.remark, line, 2);
    rows.push_back(row);
}

void SettingsForm::follow()
{
    for (std::size_t row = 0; row < rows.size(); ++row) showRow(row);
}

void SettingsForm::showRow(std::size_t index)
{
    const Row& row = rows[index];
    if (row.edit->isModified()) return;
    const FormField& field = records.front()[index];
    const QString text = field.get();
    const bool differ = std::ranges::any_of(records, [&](const auto& record) { return record[index].get() != text; });
    const bool used = std::ranges::any_of(
        records, [&](const auto& record) { return !record[index].isUsed || record[index].isUsed(); });
    const QSignalBlocker quiet(row.edit);
    row.edit->setText(differ ? QString() : text);
    Property::set(*row.edit, Property::GRAYTEXT, differ);
    row.edit->setPlaceholderText(differ ? tr("different") : QString());
    if (row.list != nullptr) {
        const auto choice = std::ranges::find(field.choices, text, &FormField::Choice::text);
        const bool isChoice = !differ && choice != field.choices.end();
        if (isChoice || row.list->isReadOnly())
            row.list->setSelectedIndex(isChoice ? static_cast<int>(choice - field.choices.begin()) : -1);
        if (!isChoice && !differ) row.edit->setText(text);  // one that is missing
    }
    row.edit->setEnabled(used);
    Property::set(*row.label, Property::DISABLED, !used);
}

void SettingsForm::change(std::size_t index, const QString& typed)
{
    const Taken result = taken(records.front()[index], typed);
    rows[index].remark->setText(result.remark);
    rows[index].edit->setAccessibleDescription(result.remark);
    rows[index].edit->setModified(false);
    for (auto& record : records) record[index].set(result.text);
    const QString name = records.front()[index].name;
    follow();
    if (onChange) onChange(name);
}
}  // namespace Gui::Forms
