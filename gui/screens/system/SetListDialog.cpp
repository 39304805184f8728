#include "gui/screens/system/SetListDialog.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "api/Bank.h"
#include "api/OrvGuiIF.h"
#include "api/OrvMessageManager.h"
#include "backend/model/Program.h"
#include "gui/framework/EditBox.h"
#include "gui/framework/ErrorLine.h"
#include "gui/framework/GdiManager.h"
#include "gui/framework/ManualButton.h"
#include "gui/framework/Properties.h"
#include "gui/screens/system/ProgramList.h"
#include "gui/screens/system/SetListView.h"

namespace Gui::System
{
using Kind = Backend::SetListEdit::Kind;

namespace
{
// Logical pixels
constexpr QSize PROGRAMS(220, 260);
constexpr QSize ENTRIES(420, 260);
}  // namespace

SetListDialog::SetListDialog(OrvGuiIF& owner, const Backend::SetList& list, QWidget& parent)
    : QDialog(&parent),
      gui(owner),
      on(new QCheckBox(tr("Next and previous program follow this list"))),
      search(new EditBox),
      programs(new QListWidget),
      entries(new SetListView(this)),
      error(new ErrorLine)
{
    setWindowTitle(tr("Set List"));
    Property::setHelp(*on, tr("The arrows of the system screen, keys, pedals and buttons for the next and the previous "
                              "program go through this list instead of the bank."));
    connect(on, &QCheckBox::clicked, this, [this](bool isOn) { gui.getOrvMessageManager().postEnableSetList(isOn); });
    auto* column = new QVBoxLayout(this);
    column->addWidget(on);
    auto* lists = new QHBoxLayout;
    lists->addWidget(makePrograms(), 1);
    lists->addWidget(makeEntries(), 2);
    column->addLayout(lists);
    column->addWidget(error);
    auto* foot = new QHBoxLayout;
    addManualButton(*foot, "set-list.htm");
    foot->addStretch();
    auto* close = new QPushButton(tr("Close"));
    close->setAutoDefault(false);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    foot->addWidget(close);
    column->addLayout(foot);
    connectEntries();
    showPrograms();
    showList(list);
    entries->setFocus();
}

// --- the two lists

QWidget* SetListDialog::makePrograms()
{
    auto* part = new QWidget;
    auto* column = new QVBoxLayout(part);
    column->setContentsMargins({});
    column->addWidget(search);
    column->addWidget(programs);
    search->setPlaceholderText(tr("Type a number or a part of the name"));
    search->setAccessibleName(tr("Search programs"));
    Property::set(*search, Property::NOWHEEL, true);
    Property::setHelp(*search, tr("Shows the programs whose number begins so, or whose name contains it."));
    connect(search, &QLineEdit::textChanged, this, &SetListDialog::find);
    connect(search, &QLineEdit::returnPressed, this, &SetListDialog::addChosen);
    programs->setAccessibleName(tr("Programs of the bank"));
    programs->setSelectionMode(QAbstractItemView::ExtendedSelection);
    programs->setUniformItemSizes(true);
    programs->setMinimumSize(gui.getGdiManager().px(PROGRAMS));
    Property::setHelp(*programs, tr("The programs of the bank. A double click adds one below the selected entries."));
    connect(programs, &QListWidget::itemActivated, this, &SetListDialog::addChosen);
    auto* row = new QHBoxLayout;
    addButton(*row, tr("Add"), tr("Adds the chosen programs below the selected entries."), &SetListDialog::addChosen);
    addButton(*row, tr("Add Current"), tr("Adds the program that is loaded below the selected entries."),
              &SetListDialog::addCurrent);
    row->addStretch();
    column->addLayout(row);
    return part;
}

QWidget* SetListDialog::makeEntries()
{
    auto* part = new QWidget;
    auto* column = new QVBoxLayout(part);
    column->setContentsMargins({});
    entries->setMinimumSize(gui.getGdiManager().px(ENTRIES));
    column->addWidget(entries);
    auto* row = new QHBoxLayout;
    addButton(*row, tr("Remove"), tr("Removes the selected entries. The programs stay in the bank."),
              &SetListDialog::remove);
    addButton(*row, tr("Undo"), tr("Undoes the last change of the list. Control and Z does the same."),
              &SetListDialog::undo);
    addButton(*row, tr("Redo"), tr("Does it again. Control, Shift and Z does the same."), &SetListDialog::redo);
    row->addStretch();
    column->addLayout(row);
    return part;
}

QPushButton* SetListDialog::addButton(QBoxLayout& row, const QString& label, const QString& help,
                                      void (SetListDialog::*action)())
{
    auto* button = new QPushButton(label);
    button->setAutoDefault(false);
    Property::setHelp(*button, help);
    connect(button, &QPushButton::clicked, this, action);
    row.addWidget(button);
    return button;
}

void SetListDialog::connectEntries()
{
    entries->onGo = [this](int id) { gui.getOrvMessageManager().postGoToSetEntry(id); };
    entries->onRemove = [this] { remove(); };
    entries->onMove = [this](int before) {
        post(Kind::move, entries->getSelected(), tr("move in the set list"), before);
    };
    entries->onNote = [this](int id, const QString& note) {
        post(Kind::note, {id}, tr("note in the set list"), 0, note);
    };
}

void SetListDialog::showList(const Backend::SetList& list)
{
    on->setChecked(list.isOn());
    on->setEnabled(!list.isBroken());
    entries->showList(list);
    entries->setEnabled(!list.isBroken());
    error->showError(list.isBroken() ? tr("The file of the set list, beside the bank, is no set list. It is left as it "
                                          "is: put it right or move it away, and load the bank again.")
                                     : QString());
}

void SetListDialog::showPrograms()
{
    programs->clear();
    int number = 0;
    for (const std::string& name : gui.getCurrentBank().programNames)
        programs->addItem(QString::number(++number) + "  " + QString::fromStdString(name));
    find(search->text());
}

void SetListDialog::find(const QString& text) { ProgramList::showFitting(*programs, text); }

// --- edits

void SetListDialog::addChosen()
{
    std::vector<int> chosen;
    for (int row = 0; row < programs->count(); ++row)
        if (programs->item(row)->isSelected() && !programs->item(row)->isHidden()) chosen.push_back(row);
    add(std::move(chosen));
}

void SetListDialog::addCurrent() { add({gui.getCurrentProgram().number}); }

void SetListDialog::add(std::vector<int> numbers)
{
    const QString name = tr("add to the set list: %1").arg(numbers.size());
    if (!numbers.empty()) post(Kind::add, std::move(numbers), name, entries->getPlaceBelow());
}

void SetListDialog::remove()
{
    std::vector<int> selected = entries->getSelected();
    const QString name = tr("remove from the set list: %1").arg(selected.size());
    if (!selected.empty()) post(Kind::remove, std::move(selected), name);
}

void SetListDialog::post(Kind kind, std::vector<int> items, const QString& name, int before, const QString& note)
{
    gui.getOrvMessageManager().postEditSetList({.kind = kind,
                                                .name = name.toStdString(),
                                                .items = std::move(items),
                                                .before = before,
                                                .note = note.toStdString()});
}

void SetListDialog::undo() { gui.getOrvMessageManager().postUndoSetList(); }

void SetListDialog::redo() { gui.getOrvMessageManager().postRedoSetList(); }

/// Those that the focused control did not use.
void SetListDialog::keyPressEvent(QKeyEvent* event)
{
    const bool isZ = event->key() == Qt::Key_Z;
    if (isZ && event->modifiers() == Qt::ControlModifier) return undo();
    if (isZ && event->modifiers() == (Qt::ControlModifier | Qt::ShiftModifier)) return redo();
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter) return event->accept();  // no button is meant
    QDialog::keyPressEvent(event);
}
}  // namespace Gui::System
