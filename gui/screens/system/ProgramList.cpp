#include "gui/screens/system/ProgramList.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>

#include "gui/framework/EditBox.h"
#include "gui/framework/GdiManager.h"
#include "gui/framework/Properties.h"

namespace Gui::System
{
namespace
{
constexpr int ROW = 24;
constexpr int COLUMN = 300;
constexpr int MOST_ROWS = 16;
constexpr int LIST_MARGIN = 4;
}  // namespace

ProgramList::ProgramList(const GdiManager& manager, const std::vector<std::string>& names, int current, QWidget* parent)
    : QFrame(parent, Qt::Popup), gdi(manager), search(new EditBox), list(new QListWidget)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setAccessibleName(tr("Programs"));
    setFrameShape(QFrame::StyledPanel);
    auto* column = new QVBoxLayout(this);
    const int margin = gdi.px(LIST_MARGIN);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(margin);
    column->addWidget(search);
    column->addWidget(list);
    auto* arrange = new QPushButton(tr("Arrange programs..."));
    arrange->setAutoDefault(false);
    Property::setHelp(*arrange, tr("Adds, moves, renames and deletes programs of the bank."));
    connect(arrange, &QPushButton::clicked, this, [this] {
        const auto wanted = onArrange;
        close();
        if (wanted) wanted();
    });
    column->addWidget(arrange);
    search->setPlaceholderText(tr("Type a number or a part of the name"));
    search->setAccessibleName(tr("Search programs"));
    Property::set(*search, Property::TEXT, true);
    Property::set(*search, Property::NOWHEEL, true);
    search->installEventFilter(this);
    connect(search, &QLineEdit::textChanged, this, &ProgramList::find);

    list->setAccessibleName(tr("Programs"));
    list->setFocusPolicy(Qt::NoFocus);  // the keys that are not typed go to it
    list->setMouseTracking(true);
    list->setUniformItemSizes(true);
    connect(list, &QListWidget::itemEntered, list, [this](QListWidgetItem* item) { list->setCurrentItem(item); });
    connect(list, &QListWidget::itemClicked, this, &ProgramList::choose);
    const int programs = static_cast<int>(names.size());
    const int columns = programs > MOST_ROWS ? 2 : 1;
    if (columns > 1) {
        list->setFlow(QListView::LeftToRight);
        list->setWrapping(true);
        list->setResizeMode(QListView::Adjust);
    }
    int number = 0;
    for (const std::string& name : names) {
        auto* item = new QListWidgetItem(QString::number(number + 1) + "  " + QString::fromStdString(name), list);
        item->setSizeHint({gdi.px(COLUMN), gdi.px(ROW)});
        item->setData(Qt::UserRole, number++);
    }
    list->setCurrentRow(current);
    const int rows = std::clamp((programs + columns - 1) / columns, 1, MOST_ROWS);
    list->setFixedSize(columns * gdi.px(COLUMN) + gdi.px(24), rows * gdi.px(ROW) + margin);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

void ProgramList::showAt(const QPoint& globalPosition)
{
    adjustSize();
    const QRect room = parentWidget()->screen()->availableGeometry();
    move(std::clamp(globalPosition.x(), room.left(), std::max(room.left(), room.right() - width())),
         std::clamp(globalPosition.y(), room.top(), std::max(room.top(), room.bottom() - height())));
    show();
    search->setFocus();
    if (list->currentItem() != nullptr) list->scrollToItem(list->currentItem(), QAbstractItemView::PositionAtCenter);
}

void ProgramList::find(const QString& text) { showFitting(*list, text); }

void ProgramList::showFitting(QListWidget& list, const QString& text)
{
    const QString wanted = text.trimmed();
    QListWidgetItem* first = nullptr;
    for (int row = 0; row < list.count(); ++row) {
        QListWidgetItem* item = list.item(row);
        const QString number = QString::number(row + 1);
        const bool fits =
            number.startsWith(wanted) || item->text().mid(number.size()).contains(wanted, Qt::CaseInsensitive);
        item->setHidden(!fits);
        if (fits && (first == nullptr || number == wanted)) first = item;
    }
    if (first != nullptr) list.setCurrentItem(first);
}

void ProgramList::choose()
{
    const QListWidgetItem* item = list->currentItem();
    const auto chosen = onChosen;
    const int number = item == nullptr || item->isHidden() ? -1 : item->data(Qt::UserRole).toInt();
    close();
    if (number >= 0 && chosen) chosen(number);
}

/// The keys that move in the list.
bool ProgramList::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() != QEvent::KeyPress) return QFrame::eventFilter(object, event);
    const auto& key = static_cast<const QKeyEvent&>(*event);
    switch (key.key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            choose();
            return true;
        case Qt::Key_Escape:
            close();
            return true;
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown: {
            QKeyEvent copy(QEvent::KeyPress, key.key(), Qt::NoModifier);
            QCoreApplication::sendEvent(list, &copy);
            return true;
        }
        default:
            return QFrame::eventFilter(object, event);
    }
}
}  // namespace Gui::System
