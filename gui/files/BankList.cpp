#include "gui/files/BankList.h"

#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <algorithm>
#include <array>
#include <utility>

#include "gui/files/CarriedPrograms.h"

namespace Gui::Files
{
using Backend::BankEdit;
using Kind = BankEdit::Kind;

/// A program. What is edited is its name; what is shown has its number, too.
class BankList::Item final : public QListWidgetItem
{
public:
    Item(BankList& owner, QString programName) : QListWidgetItem(&owner), list(owner), name(std::move(programName))
    {
        setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable | Qt::ItemIsDragEnabled);
    }

    QVariant data(int role) const override
    {
        if (role == Qt::EditRole) return name;
        const int row = list.row(this);
        const QString text = QString::number(row + 1) + "  " + name;
        if (role == Qt::DisplayRole) return text;
        if (role == Qt::AccessibleTextRole)
            return row == list.playing ? BankList::tr("%1, current program").arg(text) : text;
        return QListWidgetItem::data(role);
    }
    void setData(int role, const QVariant& value) override
    {
        if (role == Qt::EditRole) return list.renameTo(list.row(this), value.toString().trimmed());
        QListWidgetItem::setData(role, value);
    }
    const QString& getName() const { return name; }

private:
    BankList& list;
    const QString name;
};

BankList::BankList(QWidget* parent) : QListWidget(parent)
{
    setSelectionMode(ExtendedSelection);
    setUniformItemSizes(true);
    setEditTriggers(EditKeyPressed | DoubleClicked);
    setDragDropMode(DragDrop);
    setDefaultDropAction(Qt::MoveAction);
    setDragDropOverwriteMode(false);
}

void BankList::showBank(const Backend::Bank& newBank, int current)
{
    const bool isOther = newBank.name != bank.name;
    const int row = isOther ? current : currentRow();
    const std::vector<int> selected = isOther ? std::vector{current} : getSelected();
    bank = newBank;
    playing = current;
    clear();
    for (const std::string& name : bank.programNames) {
        QFont bold;
        bold.setBold(count() == playing);
        (new Item(*this, QString::fromStdString(name)))->setFont(bold);
    }
    setCurrentRow(std::clamp(row, 0, std::max(0, count() - 1)), QItemSelectionModel::NoUpdate);
    for (const int number : selected)
        if (auto* const each = item(number)) each->setSelected(true);
    if (currentItem() != nullptr) scrollToItem(currentItem());
}

std::vector<int> BankList::getSelected() const
{
    std::vector<int> rows;
    for (const QModelIndex& index : selectionModel()->selectedIndexes()) rows.push_back(index.row());
    std::ranges::sort(rows);
    return rows;
}

void BankList::selectRows(int first, int number)
{
    const int begin = std::min(first, count() - 1);
    clearSelection();
    setCurrentRow(begin, QItemSelectionModel::NoUpdate);
    for (int row = begin; row < begin + number; ++row)
        if (auto* const each = item(row)) each->setSelected(true);
    if (auto* const each = item(begin)) scrollToItem(each);
}

// --- what the user wants

namespace
{
/// "program 3", or "4 programs".
QString describePrograms(const std::vector<int>& programs)
{
    return programs.size() == 1 ? BankList::tr("program %1").arg(programs.front() + 1)
                                : BankList::tr("%1 programs").arg(programs.size());
}
std::string named(const QString& action, const std::vector<int>& programs)
{
    return action.arg(describePrograms(programs)).toStdString();
}
}  // namespace

void BankList::post(BankEdit edit, int first)
{
    edit.bank = bank.name;
    edit.shown.push_back(bank);
    if (onEdit) onEdit(edit, first);
}

/// After the selected ones.
void BankList::addProgram()
{
    const auto selected = getSelected();
    const int to = selected.empty() ? count() : selected.back() + 1;
    post({.kind = Kind::add,
          .name = tr("new program %1").arg(to + 1).toStdString(),
          .to = to,
          .programName = tr("New program").toStdString()},
         to);
}

void BankList::duplicate()
{
    const auto selected = getSelected();
    if (!selected.empty()) arrange(carry(Take::copied), selected.back() + 1);
}

void BankList::rename()
{
    if (currentItem() != nullptr) editItem(currentItem());
}

void BankList::renameTo(int number, const QString& name)
{
    if (number < 0 || name == static_cast<const Item*>(item(number))->getName()) return;
    if (name.isEmpty()) return onRefused(tr("Name cannot be blank"));
    post({.kind = Kind::rename,
          .name = named(tr("rename %1"), {number}),
          .programs = {number},
          .programName = name.toStdString()},
         number);
}

void BankList::remove()
{
    const auto selected = getSelected();
    if (selected.empty()) return;
    if (static_cast<int>(selected.size()) == count()) return onRefused(tr("A bank keeps one program at least."));
    post({.kind = Kind::remove, .name = named(tr("delete %1"), selected), .programs = selected}, selected.front());
}

/// By one place; rows that are not next to each other come together.
void BankList::moveSelected(Direction direction)
{
    const auto selected = getSelected();
    if (selected.empty()) return;
    const int to = direction == Direction::up ? selected.front() - 1 : selected.back() + 2;
    if (to >= 0 && to <= count()) arrange(carry(Take::cut), to);
}

CarriedPrograms BankList::carry(Take take) const
{
    return {.bank = bank, .programs = getSelected(), .isCut = take == Take::cut};
}

void BankList::toClipboard(Take take) const
{
    if (!getSelected().empty()) QGuiApplication::clipboard()->setMimeData(carry(take).toMimeData().release());
}

/// After the selected ones.
void BankList::paste()
{
    const auto carried = CarriedPrograms::fromMimeData(QGuiApplication::clipboard()->mimeData());
    if (!carried) return onRefused(tr("No programs were copied."));
    const auto selected = getSelected();
    arrange(*carried, selected.empty() ? count() : selected.back() + 1);
    if (carried->isCut) QGuiApplication::clipboard()->clear();
}

void BankList::arrange(const CarriedPrograms& carried, int to)
{
    const bool isInside = carried.bank.name == bank.name;
    const bool isMove = carried.isCut;
    const int before =
        static_cast<int>(std::ranges::count_if(carried.programs, [to](int number) { return number < to; }));
    BankEdit edit{.kind = isMove ? Kind::move : Kind::copy,
                  .name = named(isMove ? tr("move %1") : tr("copy %1"), carried.programs),
                  .programs = carried.programs,
                  .to = to,
                  .source = isInside ? "" : carried.bank.name};
    if (!isInside) edit.shown.push_back(carried.bank);
    post(std::move(edit), isInside && isMove ? to - before : to);
}

// --- keys

void BankList::keyPressEvent(QKeyEvent* event)
{
    if (useKey(*event)) return event->accept();
    QListWidget::keyPressEvent(event);
}

bool BankList::useKey(const QKeyEvent& event)
{
    struct Row {
        QKeyCombination key;
        void (*action)(BankList& list);
    };
    constexpr std::array ROWS{
        Row{Qt::Key_Insert, [](BankList& list) { list.addProgram(); }},
        Row{Qt::CTRL | Qt::Key_N, [](BankList& list) { list.addProgram(); }},
        Row{Qt::CTRL | Qt::Key_D, [](BankList& list) { list.duplicate(); }},
        Row{Qt::Key_Delete, [](BankList& list) { list.remove(); }},
        Row{Qt::ALT | Qt::Key_Up, [](BankList& list) { list.moveSelected(Direction::up); }},
        Row{Qt::ALT | Qt::Key_Down, [](BankList& list) { list.moveSelected(Direction::down); }},
        Row{Qt::CTRL | Qt::Key_C, [](BankList& list) { list.toClipboard(Take::copied); }},
        Row{Qt::CTRL | Qt::Key_X, [](BankList& list) { list.toClipboard(Take::cut); }},
        Row{Qt::CTRL | Qt::Key_V, [](BankList& list) { list.paste(); }},
        Row{Qt::CTRL | Qt::Key_Z, [](BankList& list) { list.onStep(Step::undo); }},
        Row{Qt::CTRL | Qt::SHIFT | Qt::Key_Z, [](BankList& list) { list.onStep(Step::redo); }},
        Row{Qt::Key_Return, [](BankList& list) { list.onChosen(list.currentRow()); }},
        Row{Qt::Key_Enter, [](BankList& list) { list.onChosen(list.currentRow()); }},
    };
    const QKeyCombination pressed(event.modifiers() & ~Qt::KeypadModifier, static_cast<Qt::Key>(event.key()));
    const auto* const row = std::ranges::find(ROWS, pressed, &Row::key);
    if (row == ROWS.end()) return false;
    onRefused({});
    row->action(*this);
    return true;
}

/// From the current row on, what was typed within the usual time.
void BankList::keyboardSearch(const QString& text)
{
    if (!sinceTyped.isValid() || sinceTyped.hasExpired(QApplication::keyboardInputInterval())) typed.clear();
    sinceTyped.start();
    const int from = std::max(0, currentRow()) + (typed.isEmpty() ? 1 : 0);
    typed += text;
    for (int step = 0; step < count(); ++step) {
        auto* const found = static_cast<Item*>(item((from + step) % count()));
        const bool fits =
            found->getName().startsWith(typed, Qt::CaseInsensitive) || QString::number(row(found) + 1) == typed;
        if (fits) return setCurrentItem(found);
    }
}

// --- dragging

QStringList BankList::mimeTypes() const { return {CarriedPrograms::FORMAT}; }

QMimeData* BankList::mimeData(const QList<QListWidgetItem*>&) const
{
    return carry(Take::copied).toMimeData().release();
}

/// The action is reported as a copy, so that no list removes rows by itself.
void BankList::dropEvent(QDropEvent* event)
{
    auto carried = CarriedPrograms::fromMimeData(event->mimeData());
    if (!carried) return event->ignore();
    const QModelIndex index = indexAt(event->position().toPoint());
    const bool isLower = index.isValid() && event->position().y() > visualRect(index).center().y();
    const bool isInside = carried->bank.name == bank.name;
    carried->isCut = isInside ? !(event->modifiers() & Qt::ControlModifier)
                              : static_cast<bool>(event->modifiers() & Qt::ShiftModifier);
    event->setDropAction(Qt::CopyAction);
    event->accept();
    stopAutoScroll();
    setState(NoState);
    viewport()->update();
    arrange(*carried, index.isValid() ? index.row() + (isLower ? 1 : 0) : count());
}
}  // namespace Gui::Files
