#include "gui/forms/BindingEditor.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <algorithm>

#include "gui/forms/RecordEditor.h"
#include "gui/forms/RecordForm.h"
#include "gui/framework/ComboBox.h"
#include "gui/framework/EditPoster.h"
#include "gui/framework/Properties.h"

namespace Gui::Forms
{
using Backend::RecordId;

namespace
{
constexpr int ENTRIES_STRETCH = 5;  // the widths of the three columns
constexpr int PICKER_STRETCH = 4;
constexpr int SETTINGS_STRETCH = 5;
}  // namespace

BindingEditor::BindingEditor(GuiContext& owner, RecordEditor& shownEditor, BindingRecords& shownRecords, Of kind,
                             QWidget* parent)
    : BindingEditor(owner, shownEditor, shownRecords, new BindingPicker(kind), parent)
{
}

BindingEditor::BindingEditor(GuiContext& owner, RecordEditor& shownEditor, BindingRecords& shownRecords,
                             QWidget* picture, QWidget* parent)
    : QWidget(parent), editor(shownEditor), records(shownRecords), picker(dynamic_cast<BindingPicker*>(picture))
{
    editor.observe(*this, [this] { showSelected(); });
    auto* const line = new QHBoxLayout(this);
    line->setContentsMargins({});
    makeEntries(*line);
    common = new RecordForm(owner, editor);
    line->itemAt(0)->layout()->addWidget(common);
    if (picker != nullptr) picker->onChoose = [this](const std::string& typeName) { choose(typeName); };
    line->addWidget(picture, PICKER_STRETCH);
    makeSettings(*line, owner);
    showSelected();
    settings->showSelected();
}

void BindingEditor::makeEntries(QHBoxLayout& line)
{
    auto* const column = new QVBoxLayout;
    line.addLayout(column, ENTRIES_STRETCH);
    rows = new QListWidget;
    rows->setAccessibleName(tr("Entries"));
    rows->setFocusPolicy(Qt::TabFocus);
    Property::setHelp(
        *rows, tr("What the selected ones do, in this order. The settings of the current line are at the right."));
    connect(rows, &QListWidget::currentRowChanged, this, &BindingEditor::chooseRow);
    column->addWidget(rows, 1);
    auto* const buttons = new QHBoxLayout;
    column->addLayout(buttons);
    addButton = &makeButton(*buttons, tr("Add"), tr("Adds an entry at the end."), [this] {
        change(tr("add entry"), [this](RecordId id) { records.addEntry(id); });
        chooseRow(countRows() - records.getRowsPerEntry());
    });
    removeButton = &makeButton(*buttons, tr("Remove"), tr("Removes the current entry."), [this] {
        change(tr("remove entry"), [this](RecordId id) { records.removeEntry(id, getEntry()); });
    });
    earlierButton = &makeButton(*buttons, tr("Earlier"), tr("Executes the current entry before the one above it."),
                                [this] { moveEntry(-1); });
    laterButton = &makeButton(*buttons, tr("Later"), tr("Executes the current entry after the one below it."),
                              [this] { moveEntry(1); });
}

QPushButton& BindingEditor::makeButton(QHBoxLayout& line, const QString& text, const QString& help,
                                       const std::function<void()>& click)
{
    auto* const button = new QPushButton(text);
    button->setFocusPolicy(Qt::TabFocus);
    button->setAccessibleName(tr("%1 entry").arg(text));
    Property::setHelp(*button, help);
    connect(button, &QPushButton::clicked, this, click);
    line.addWidget(button);
    return *button;
}

void BindingEditor::makeSettings(QHBoxLayout& line, GuiContext& owner)
{
    auto* const column = new QVBoxLayout;
    line.addLayout(column, SETTINGS_STRETCH);
    notesLine = new QWidget;
    auto* const notesLayout = new QHBoxLayout(notesLine);
    notesLayout->setContentsMargins({});
    auto* const label = new QLabel(tr("Notes"));
    notesLayout->addWidget(label);
    notes = new ComboBox(owner, ComboBox::Typing::readOnly);
    for (const QString& text : {tr("All the same"), tr("Rising by semitones"), tr("Rising in a major scale"),
                                tr("Rising in a minor scale"), tr("Rising in a pentatonic scale")})
        notes->addEntry({.text = text});
    notes->setSelectedIndex(static_cast<int>(RisingNotes::semitones));
    notes->setAccessibleName(tr("Notes"));
    label->setBuddy(notes);
    Property::setHelp(*notes, tr("How the notes of several keys follow from the note of the first one, from left to "
                                 "right and row by row."));
    notes->onChange = [this](int) {
        editor.change(shown, tr("notes"), editor.getEdits().gestureOf("notes"), [this] { raiseNotes(shown); });
    };
    notesLayout->addWidget(notes, 1);
    column->addWidget(notesLine);
    settings =
        new RecordForm(owner, editor, nullptr, 1,
                       {.fieldsOf =
                            [this](RecordId id) {
                                return getType().empty() ? std::vector<FormField>() : records.fieldsOfRow(id, row);
                            },
                        .getVersion = [this] { return rowVersion + records.getRevision(); },
                        .complete =
                            [this](const std::vector<RecordId>& ids, const QString& field) {
                                if (field == tr("Note")) raiseNotes(ids);
                            }});
    column->addWidget(settings);
    column->addStretch(1);
}

// --- what is shown

void BindingEditor::showSelected()
{
    const auto ids = editor.isOpen() ? editor.getSelection().getSelected() : std::vector<RecordId>();
    if (ids != shown) row = 0;
    if (ids != shown) ++rowVersion;
    shown = ids;
    showRows();
}

void BindingEditor::showRows()
{
    if (shown.empty()) return;
    const int count = countRows();
    if (row >= count) {
        row = count - 1;
        ++rowVersion;
    }
    const QSignalBlocker quiet(rows);
    while (rows->count() > count) delete rows->takeItem(rows->count() - 1);
    while (rows->count() < count) rows->addItem(QString());
    for (int each = 0; each < count; ++each)
        rows->item(each)->setText(records.nameOfRow(each) + QStringLiteral(": ") + describeRow(each));
    rows->setCurrentRow(row);
    showRow();
}

void BindingEditor::showRow()
{
    const std::string type = getType();
    if (picker != nullptr && picker->getChosen() != type) picker->setChosen(type);
    notesLine->setVisible(shown.size() > 1 && hasNotes());
    records.setHelp(shown.front(), row, *settings);
    const int entries = countRows() / records.getRowsPerEntry();
    addButton->setEnabled(std::ranges::all_of(shown, [this](RecordId id) { return records.canAddEntry(id); }));
    removeButton->setEnabled(entries > 1 || !records.write(shown.front()).empty());
    earlierButton->setEnabled(getEntry() > 0);
    laterButton->setEnabled(getEntry() + 1 < entries);
    if (onShown) onShown(shown.front(), row);
}

void BindingEditor::chooseRow(int newRow)
{
    if (newRow < 0 || newRow == row || shown.empty()) return;
    row = newRow;
    ++rowVersion;
    showRows();
    settings->showSelected();
}

int BindingEditor::countRows() const
{
    int entries = 1;
    for (const RecordId id : shown) entries = std::max(entries, records.countEntries(id));
    return entries * records.getRowsPerEntry();
}

bool BindingEditor::hasNotes() const
{
    return std::ranges::all_of(shown, [this](RecordId id) { return records.hasNote(id, row); });
}

/// Empty if they are of different types.
std::string BindingEditor::getType() const
{
    const std::string type = shown.empty() ? std::string() : records.getType(shown.front(), row);
    const auto isSame = [&](RecordId id) { return records.getType(id, row) == type; };
    return std::ranges::all_of(shown, isSame) ? type : std::string();
}

QString BindingEditor::describeRow(int ofRow) const
{
    const QString text = records.describeRow(shown.front(), ofRow);
    const auto isSame = [&](RecordId id) { return records.describeRow(id, ofRow) == text; };
    return std::ranges::all_of(shown, isSame) ? text : tr("different");
}

// --- what is changed

void BindingEditor::change(const QString& value, const std::function<void(RecordId id)>& set)
{
    editor.change(shown, value, editor.getEdits().beginGesture(), [&] { std::ranges::for_each(shown, set); });
}

/// Moving through the list of the picker is one step of undo.
void BindingEditor::choose(const std::string& typeName)
{
    const QString name = records.nameOfRow(row);
    editor.change(shown, name, editor.getEdits().gestureOf("binding " + name.toStdString()), [&] {
        for (const RecordId id : shown) records.choose(id, row, typeName);
        raiseNotes(shown);
    });
}

void BindingEditor::raiseNotes(const std::vector<RecordId>& ids)
{
    if (ids.size() > 1 && hasNotes()) records.raiseNotes(ids, row, static_cast<RisingNotes>(notes->getSelectedIndex()));
}

void BindingEditor::moveEntry(int by)
{
    change(tr("move entry"), [this, by](RecordId id) { records.moveEntry(id, getEntry(), by); });
    chooseRow(row + by * records.getRowsPerEntry());
}
}  // namespace Gui::Forms
