#include "gui/forms/RecordList.h"

#include <QContextMenuEvent>
#include <QItemSelection>
#include <QKeyEvent>
#include <QMouseEvent>

#include "gui/forms/RecordEditor.h"

namespace Gui::Forms
{
RecordList::RecordList(RecordEditor& shownEditor, QWidget* parent) : QListWidget(parent), editor(shownEditor)
{
    setSelectionMode(ExtendedSelection);
    setFocusPolicy(Qt::TabFocus);  // a click must not take the focus from playing
    setAccessibleName(editor.getRecords().getKind().many);
    editor.observe(*this, [this] { showRecords(); });
    showRecords();
}

void RecordList::showRecords()
{
    const Selection& selection = editor.getSelection();
    const auto& ids = selection.getRecords();
    while (count() > static_cast<int>(ids.size())) delete takeItem(count() - 1);
    while (count() < static_cast<int>(ids.size())) addItem(QString());
    QItemSelection selected;
    for (int row = 0; row < count(); ++row) {
        const auto id = ids[static_cast<std::size_t>(row)];
        const QModelIndex index = model()->index(row, 0);
        item(row)->setText(editor.getRecords().describe(id));
        if (selection.isSelected(id)) selected.select(index, index);
        if (selection.isCurrent(id)) selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
    }
    selectionModel()->select(selected, QItemSelectionModel::ClearAndSelect);
}

// --- the mouse

void RecordList::mousePressEvent(QMouseEvent* event)
{
    Selection& selection = editor.getSelection();
    const int row = indexAt(event->position().toPoint()).row();
    if (row < 0) return selection.select({});
    const auto id = selection.getRecords()[static_cast<std::size_t>(row)];
    if (event->button() == Qt::RightButton)
        selection.clickForMenu(id);
    else
        selection.click(id, event->modifiers());
}

void RecordList::mouseDoubleClickEvent(QMouseEvent* event)
{
    mousePressEvent(event);
    editor.setOpen(!editor.getSelection().getSelected().empty());
}

void RecordList::contextMenuEvent(QContextMenuEvent* event) { editor.showMenu(*this, event->globalPos()); }

// --- the keys

void RecordList::keyPressEvent(QKeyEvent* event)
{
    constexpr auto NO_TEXT = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    const bool isText = !event->text().isEmpty() && event->text().front().isPrint() && !(event->modifiers() & NO_TEXT);
    if (editor.useKey(*event)) return event->accept();
    isText ? search(event->text()) : event->ignore();
}

/// Moves to the next row that begins with what was typed within a second.
void RecordList::search(const QString& text)
{
    keyboardSearch(text);
    if (currentRow() < 0) return;
    Selection& selection = editor.getSelection();
    selection.moveTo(selection.getRecords()[static_cast<std::size_t>(currentRow())], {});
    showRecords();
}

// While it has the focus it counts as a control that takes text. The base turns that off for rows that cannot be
// edited.

void RecordList::focusInEvent(QFocusEvent* event)
{
    QListWidget::focusInEvent(event);
    setAttribute(Qt::WA_InputMethodEnabled);
}

void RecordList::focusOutEvent(QFocusEvent* event)
{
    QListWidget::focusOutEvent(event);
    setAttribute(Qt::WA_InputMethodEnabled, false);
}

void RecordList::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QListWidget::currentChanged(current, previous);
    setAttribute(Qt::WA_InputMethodEnabled, hasFocus());
}
}  // namespace Gui::Forms
