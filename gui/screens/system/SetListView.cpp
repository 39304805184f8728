#include "gui/screens/system/SetListView.h"

#include <QDropEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <algorithm>

#include "gui/framework/Properties.h"

namespace Gui::System
{
using Backend::SetEntry;
using Backend::SetList;

namespace
{
const QString CURRENT_MARK = QStringLiteral("\u25b6");
}

SetListView::SetListView(QWidget* parent) : QTreeWidget(parent)
{
    setAccessibleName(tr("Set list"));
    Property::setHelp(*this,
                      tr("The programs in the order in which they are played. Enter, or a click before one, goes to "
                         "it; F2 or a double click edits its note; Delete removes the selected ones; drag them, or "
                         "press Alt with an arrow, to move them."));
    setHeaderLabels({{}, tr("Program"), tr("Note")});
    header()->setSectionResizeMode(MARK, QHeaderView::ResizeToContents);
    header()->setSectionResizeMode(PROGRAM, QHeaderView::Stretch);
    header()->setSectionResizeMode(NOTE, QHeaderView::Stretch);
    header()->setStretchLastSection(false);
    header()->setSectionsMovable(false);
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setSelectionMode(ExtendedSelection);
    setDragDropMode(InternalMove);
    setEditTriggers(NoEditTriggers);
    connect(this, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item, int column) {
        if (column == MARK) onGo(idAt(indexOfTopLevelItem(item)));
    });
    connect(this, &QTreeWidget::itemDoubleClicked, this, [this](QTreeWidgetItem*, int column) {
        if (column != MARK) editNote();
    });
    connect(this, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem* item, int column) {
        if (!isFilling && column == NOTE) onNote(idAt(indexOfTopLevelItem(item)), item->text(NOTE));
    });
}

// --- showing

/// Rows stay where they are and get their texts: one that is edited is not disturbed.
void SetListView::showList(const SetList& newList)
{
    const std::vector<int> selected = getSelected();
    const int focused = idAt(indexOfTopLevelItem(currentItem()));
    list = newList;
    isFilling = true;
    const int count = static_cast<int>(list.getEntries().size());
    while (topLevelItemCount() > count) delete takeTopLevelItem(topLevelItemCount() - 1);
    while (topLevelItemCount() < count) addTopLevelItem(new QTreeWidgetItem);
    for (int row = 0; row < count; ++row) {
        const SetEntry& entry = list.getEntries()[static_cast<std::size_t>(row)];
        showEntry(row, entry);
        if (entry.id == focused)
            selectionModel()->setCurrentIndex(indexFromItem(topLevelItem(row), PROGRAM), QItemSelectionModel::NoUpdate);
        topLevelItem(row)->setSelected(std::ranges::find(selected, entry.id) != selected.end());
    }
    isFilling = false;
}

void SetListView::showEntry(int row, const SetEntry& entry)
{
    QTreeWidgetItem& item = *topLevelItem(row);
    const auto show = [&item](int column, const QString& text) {
        if (item.text(column) != text) item.setText(column, text);
    };
    const bool isCurrent = entry.id == list.getCurrent();
    item.setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled | Qt::ItemIsEditable);
    show(MARK, isCurrent ? CURRENT_MARK : QString::number(row + 1));
    item.setData(MARK, Qt::AccessibleTextRole, isCurrent ? tr("Current entry") : QString::number(row + 1));
    const QString program = QString::number(entry.number + 1) + "  " + QString::fromStdString(entry.name);
    show(PROGRAM, entry.isMissing ? tr("%1 (missing)").arg(QString::fromStdString(entry.name)) : program);
    show(NOTE, QString::fromStdString(entry.note));
}

int SetListView::idAt(int row) const
{
    const auto& entries = list.getEntries();
    return row >= 0 && row < static_cast<int>(entries.size()) ? entries[static_cast<std::size_t>(row)].id
                                                              : SetList::NONE;
}

std::vector<int> SetListView::getSelected() const
{
    std::vector<int> ids;
    for (int row = 0; row < topLevelItemCount(); ++row)
        if (topLevelItem(row)->isSelected()) ids.push_back(idAt(row));
    return ids;
}

int SetListView::getPlaceBelow() const
{
    const std::vector<int> selected = getSelected();
    return selected.empty() ? SetList::NONE : idAt(list.rowOf(selected.back()) + 1);
}

// --- what the user does

void SetListView::editNote()
{
    if (currentItem() != nullptr) editItem(currentItem(), NOTE);
}

void SetListView::keyPressEvent(QKeyEvent* event)
{
    if (state() == EditingState) return event->accept();  // Enter ends the note
    const bool isAlt = event->modifiers() == Qt::AltModifier;
    switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return onGo(idAt(indexOfTopLevelItem(currentItem())));
        case Qt::Key_Delete:
            return onRemove();
        case Qt::Key_F2:
            return editNote();
        case Qt::Key_Up:
        case Qt::Key_Down:
            if (isAlt) return move(event->key() == Qt::Key_Up ? -1 : 1);
            break;
        default:
            break;
    }
    QTreeWidget::keyPressEvent(event);
}

/// By one place.
void SetListView::move(int step)
{
    const std::vector<int> selected = getSelected();
    if (selected.empty()) return;
    const int first = list.rowOf(selected.front());
    const int last = list.rowOf(selected.back());
    if (step < 0 && first > 0) moveTo(idAt(first - 1));
    if (step > 0 && last + 1 < topLevelItemCount()) moveTo(idAt(last + 2));
}

void SetListView::dropEvent(QDropEvent* event)
{
    event->setDropAction(Qt::IgnoreAction);  // the list shows what the backend has made of it
    event->accept();
    const int row = indexAt(event->position().toPoint()).row();
    if (row < 0) return moveTo(SetList::NONE);
    moveTo(idAt(dropIndicatorPosition() == BelowItem ? row + 1 : row));
}

/// Not to where they are.
void SetListView::moveTo(int before)
{
    const std::vector<int> selected = getSelected();
    const bool isAmong = before != SetList::NONE && std::ranges::find(selected, before) != selected.end();
    if (!selected.empty() && !isAmong) onMove(before);
}
}  // namespace Gui::System
