#include "gui/forms/SettingsForm.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QSignalBlocker>
#include <QWheelEvent>
#include <algorithm>
#include <utility>

#include "gui/framework/ComboBox.h"
#include "gui/framework/EditBox.h"
#include "gui/framework/MouseCapture.h"
#include "gui/framework/Properties.h"
#include "gui/framework/Skinner.h"

namespace Gui::Forms
{
namespace
{
using Edit = FormField::Edit;

constexpr int CONTROL_WIDTH = 180;  // logical pixels
constexpr int PARTS = 3;            // of a row

bool isNumber(const FormField& field)
{
    return field.edit == Edit::number || field.edit == Edit::change || field.edit == Edit::note ||
           field.edit == Edit::length;
}

ComboBox::Typing typingOf(const FormField& field)
{
    return field.edit == Edit::list ? ComboBox::Typing::readOnly : ComboBox::Typing::editable;
}
}  // namespace

/// The name of a field. A drag of that of a number changes it, upwards or to the right by a step for each few pixels.
class SettingsForm::FieldName final : public QLabel
{
public:
    FieldName(SettingsForm& itsForm, std::size_t itsRow, const FormField& field)
        : QLabel(field.name), form(itsForm), row(itsRow), capture(itsForm.context, *this), canBeDragged(isNumber(field))
    {
        if (canBeDragged) setCursor(Qt::SizeVerCursor);
    }

protected:
    void mousePressEvent(QMouseEvent* event) override
    {
        if (!canBeDragged || event->button() != Qt::LeftButton || !form.rows[row].edit->isEnabled())
            return QLabel::mousePressEvent(event);
        capture.begin(event->globalPosition(), 0, MouseCapture::Pointer::plain);
        form.dragged.emplace();
        for (const auto& record : form.records) form.dragged->push_back(record[row].get());
    }
    void mouseMoveEvent(QMouseEvent* event) override
    {
        if (capture.isCaptured())
            form.drag(row, capture.takeSteps(event->globalPosition()), event->modifiers().testFlag(Qt::ShiftModifier));
    }
    void mouseReleaseEvent(QMouseEvent*) override { end(); }
    void hideEvent(QHideEvent*) override { end(); }

private:
    void end()
    {
        if (!capture.isCaptured()) return;
        capture.end();
        form.dragged.reset();
    }

    SettingsForm& form;
    const std::size_t row;
    MouseCapture capture;
    const bool canBeDragged;
};

SettingsForm::SettingsForm(GuiContext& owner, QWidget* parent, int columnCount)
    : QWidget(parent), context(owner), columns(columnCount), grid(new QGridLayout(this))
{
    grid->setContentsMargins({});
    for (int column = 0; column < columns; ++column) grid->setColumnStretch(column * PARTS + 2, 1);
}

void SettingsForm::setRecords(std::vector<std::vector<FormField>> fieldsOfRecords)
{
    const auto focused = std::ranges::find_if(rows, [](const Row& row) { return row.edit->hasFocus(); });
    const QString focusedName = focused == rows.end() ? QString() : focused->edit->accessibleName();
    for (const Row& row : rows)
        for (QWidget* part :
             {static_cast<QWidget*>(row.label), static_cast<QWidget*>(row.edit), static_cast<QWidget*>(row.remark)}) {
            part->hide();
            part->deleteLater();  // it may have called
        }
    rows.clear();
    dragged.reset();
    records = std::move(fieldsOfRecords);
    if (records.empty()) return;
    for (const FormField& field : records.front()) addRow(field);
    follow();
    for (const Row& row : rows)
        if (row.edit->accessibleName() == focusedName) row.edit->setFocus();
}

void SettingsForm::addRow(const FormField& field)
{
    const std::size_t index = rows.size();
    const int lines = (static_cast<int>(records.front().size()) + columns - 1) / columns;
    const int line = static_cast<int>(index) % lines;
    const int column = static_cast<int>(index) / lines * PARTS;
    Row row{.label = new FieldName(*this, index, field), .edit = nullptr, .list = nullptr, .remark = new QLabel};
    if (field.choices.empty()) {
        row.edit = new EditBox;
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
    if (isNumber(field)) row.edit->installEventFilter(this);
    Property::setColour(*row.remark, GdiManager::Role::frame);
    // The wheel and the menu report a text at once; a text that is typed is complete when it is left.
    connect(row.edit, &QLineEdit::textEdited, this, [this, index, edit = row.edit](const QString& text) {
        if (!edit->isModified()) change(index, text);
    });
    connect(row.edit, &QLineEdit::editingFinished, this, [this, index, edit = row.edit] {
        if (edit->isModified()) change(index, edit->text());
    });
    grid->addWidget(row.label, line, column);
    grid->addWidget(row.edit, line, column + 1);
    grid->addWidget(row.remark, line, column + 2);
    rows.push_back(row);
}

void SettingsForm::follow()
{
    for (std::size_t row = 0; row < rows.size(); ++row) showRow(row);
}

void SettingsForm::focusFirst()
{
    if (!rows.empty()) rows.front().edit->setFocus(Qt::TabFocusReason);
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
    const bool isReplacedByTyping = row.edit->hasFocus() && row.edit->selectedText() == row.edit->text();
    row.edit->setText(differ ? QString() : text);
    Skinner::indicateInvalidValue(*row.edit, differ);
    row.edit->setPlaceholderText(differ ? tr("different") : QString());
    if (row.list != nullptr) {
        const auto choice = std::ranges::find(field.choices, text, &FormField::Choice::text);
        const bool isChoice = !differ && choice != field.choices.end();
        if (isChoice || row.list->isReadOnly())
            row.list->setSelectedIndex(isChoice ? static_cast<int>(choice - field.choices.begin()) : -1);
        if (!isChoice && !differ) row.edit->setText(text);  // one that is missing
    }
    if (isReplacedByTyping) row.edit->selectAll();
    row.edit->setEnabled(used);
    row.edit->setProperty(Property::MIN, field.getRange().lowest);
    row.edit->setProperty(Property::MAX, field.getRange().highest);
    Property::set(*row.label, Property::DISABLED, !used);
}

void SettingsForm::change(std::size_t index, const QString& typed)
{
    const Taken result = taken(records.front()[index], typed);
    change(index, [&](const FormField&, std::size_t) { return result; });
}

/// Sets a field of each record to what is taken for it.
void SettingsForm::change(std::size_t index,
                          const std::function<Taken(const FormField& field, std::size_t record)>& take)
{
    QString remark;
    std::vector<QString> texts;
    for (std::size_t record = 0; record < records.size(); ++record) {
        Taken result = take(records[record][index], record);
        if (remark.isEmpty()) remark = result.remark;
        texts.push_back(std::move(result.text));
    }
    const QString name = records.front()[index].name;
    rows[index].remark->setText(remark);
    rows[index].edit->setAccessibleDescription(remark);
    rows[index].edit->setModified(false);
    if (!remark.isEmpty() && onRemark) onRemark(name + QStringLiteral(": ") + remark);
    const auto set = [&] {
        for (std::size_t record = 0; record < records.size(); ++record) records[record][index].set(texts[record]);
    };
    execute ? execute(name, set) : set();
    follow();
    if (onChange) onChange(name);
}

// --- steps

int SettingsForm::getStep(std::size_t index, bool wide) const { return wide ? records.front()[index].wideStep : 1; }

void SettingsForm::step(std::size_t index, int steps, bool wide)
{
    if (steps == 0) return;
    if (rows[index].edit->isModified()) change(index, rows[index].edit->text());
    change(index, [&](const FormField& field, std::size_t) {
        return stepped(field, field.get(), steps * getStep(index, wide));
    });
}

void SettingsForm::drag(std::size_t index, int steps, bool wide)
{
    const std::vector<QString> from = *dragged;
    change(index, [&](const FormField& field, std::size_t record) {
        return stepped(field, from[record], steps * getStep(index, wide));
    });
}

bool SettingsForm::eventFilter(QObject* object, QEvent* event)
{
    const auto row = std::ranges::find(rows, object, &Row::edit);
    if (row == rows.end()) return false;
    const auto index = static_cast<std::size_t>(row - rows.begin());
    if (event->type() == QEvent::Wheel) {
        const auto& turned = static_cast<const QWheelEvent&>(*event);
        step(index, wheel.takeNotches(turned), turned.modifiers().testFlag(Qt::ShiftModifier));
        return true;
    }
    if (event->type() != QEvent::KeyPress) return false;
    const auto& key = static_cast<const QKeyEvent&>(*event);
    if (key.key() != Qt::Key_Up && key.key() != Qt::Key_Down) return false;
    if (key.modifiers().testFlag(Qt::AltModifier)) return false;
    step(index, key.key() == Qt::Key_Up ? 1 : -1, key.modifiers().testFlag(Qt::ShiftModifier));
    return true;
}
}  // namespace Gui::Forms
