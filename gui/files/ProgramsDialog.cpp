#include "gui/files/ProgramsDialog.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "api/OrvGuiIF.h"
#include "api/OrvMessageManager.h"
#include "backend/model/Program.h"
#include "gui/files/BankList.h"
#include "gui/files/FileCommands.h"
#include "gui/framework/ErrorLine.h"
#include "gui/framework/FileDialog.h"
#include "gui/framework/FileNames.h"
#include "gui/framework/ManualButton.h"
#include "gui/framework/Properties.h"
#include "gui/framework/TextFocus.h"

namespace Gui::Files
{
using Backend::BankEdit;
using Backend::BankEditDone;

namespace
{
constexpr QSize SMALLEST_LIST(260, 320);
}

ProgramsDialog::ProgramsDialog(OrvGuiIF& owner, QWidget& parent) : QDialog(&parent), gui(owner), error(new ErrorLine)
{
    setWindowTitle(tr("Programs"));
    setProperty(TAKES_TYPING, true);
    auto* rows = new QVBoxLayout(this);
    auto* lists = new QHBoxLayout;
    current = addSide(*lists, tr("Programs of the bank"));
    other = addSide(*lists, tr("Programs of the other bank"));
    other.title->hide();
    other.list->hide();
    active = current.list;
    auto* buttons = new QVBoxLayout;
    addButtons(*buttons);
    lists->addLayout(buttons);
    rows->addLayout(lists);
    rows->addWidget(error);
    follow();
    current.list->setFocus();
}

ProgramsDialog::Side ProgramsDialog::addSide(QBoxLayout& row, const QString& name)
{
    const Side side{new QLabel, new BankList};
    side.title->setTextFormat(Qt::PlainText);
    side.list->setMinimumSize(SMALLEST_LIST);
    side.list->setAccessibleName(name);
    Property::setHelp(*side.list,
                      tr("Drag programs to their places, with Control to copy them; to another bank they are copied, "
                         "with Shift moved. Alt and the arrows move, Control+C, X and V copy, cut and paste, also in "
                         "another window; F2 renames, Insert adds, Delete deletes, Enter plays a program."));
    auto* column = new QVBoxLayout;
    column->addWidget(side.title);
    column->addWidget(side.list);
    row.addLayout(column, 1);
    side.list->onEdit = [this](const BankEdit& change, int first) { edit(change, first); };
    side.list->onStep = [this, list = side.list](BankList::Step step) {
        auto& commands = gui.getOrvMessageManager();
        const std::string& path = list->getBank().name;
        step == BankList::Step::undo ? commands.postUndoBank(path) : commands.postRedoBank(path);
    };
    side.list->onRefused = [this](const QString& text) { error->showError(text); };
    side.list->onChosen = [this, list = side.list](int number) {
        if (list == current.list && number >= 0)
            gui.getOrvMessageManager().postChangeProgram({.kind = SelectType::Kind::specific, .value = number});
    };
    connect(side.list, &QListWidget::itemSelectionChanged, this, [this, list = side.list] {
        if (list->hasFocus()) active = list;
    });
    return side;
}

// --- the buttons, which are for the list that had the focus last

void ProgramsDialog::addButton(QBoxLayout& column, const QString& label, const QString& help,
                               std::function<void()> action)
{
    auto* button = new QPushButton(label);
    button->setAutoDefault(false);
    Property::setHelp(*button, help);
    connect(button, &QPushButton::clicked, this, [this, action = std::move(action)] {
        error->showError({});
        action();
    });
    column.addWidget(button);
}

void ProgramsDialog::addButtons(QBoxLayout& column)
{
    using Direction = BankList::Direction;
    addButton(column, tr("New"), tr("Adds an empty program after the selected ones."),
              [this] { active->addProgram(); });
    addButton(column, tr("Duplicate"), tr("Adds copies of the selected programs; of the current one as it is now."),
              [this] { active->duplicate(); });
    addButton(column, tr("Rename"), tr("Changes the name of the program in the list."), [this] { active->rename(); });
    addButton(column, tr("Delete"), tr("Deletes the selected programs. Undo brings them back."),
              [this] { active->remove(); });
    addButton(column, tr("Up"), tr("Moves the selected programs up."), [this] { active->moveSelected(Direction::up); });
    addButton(column, tr("Down"), tr("Moves the selected programs down."),
              [this] { active->moveSelected(Direction::down); });
    addButton(column, tr("Copy"), tr("Copies the selected programs to the clipboard, for another window, too."),
              [this] { active->toClipboard(BankList::Take::copied); });
    addButton(column, tr("Cut"), tr("Moves the selected programs to where they are pasted, in another window, too."),
              [this] { active->toClipboard(BankList::Take::cut); });
    addButton(column, tr("Paste"), tr("Adds the programs of the clipboard after the selected ones."),
              [this] { active->paste(); });
    addButton(column, tr("Undo"), tr("Undoes the last change of this bank."),
              [this] { active->onStep(BankList::Step::undo); });
    addButton(column, tr("Redo"), tr("Does again what was undone."), [this] { active->onStep(BankList::Step::redo); });
    addButton(column, tr("Other bank..."), tr("Shows the programs of a second bank beside this one."),
              [this] { openOther(); });
    column.addStretch();
    addManualButton(column, "save.htm");
    auto* close = new QPushButton(tr("Close"));
    close->setAutoDefault(false);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    column.addWidget(close);
}

void ProgramsDialog::openOther()
{
    chooseFile(gui, *this, {.title = tr("Other Bank"), .filters = {bankFilter()}}, [this](const std::string& path) {
        const Backend::Bank bank = Backend::Bank::fromFile(path);
        if (bank.programNames.empty())
            return error->showError(tr("There is no program in \"%1\".").arg(shownFileName(path)));
        if (bank.name == current.list->getBank().name) return error->showError(tr("This is the bank that is loaded."));
        show(other, bank);
        other.title->show();
        other.list->show();
    });
}

// --- what is shown

void ProgramsDialog::show(const Side& side, const Backend::Bank& bank)
{
    side.title->setText(shownFileName(bank.name));
    side.list->showBank(bank, side.list == current.list ? gui.getCurrentProgram().number : -1);
}

void ProgramsDialog::follow()
{
    if (isBusy) return;  // the acknowledgement follows
    if (gui.getCurrentBank() == current.list->getBank() && gui.getCurrentProgram().number == shownProgram) return;
    shownProgram = gui.getCurrentProgram().number;
    show(current, gui.getCurrentBank());
}

// --- changes

/// A bank as it was installed is not changed without a question, after which the current bank may be another one.
void ProgramsDialog::edit(const BankEdit& change, int first)
{
    error->showError({});
    if (isBusy) return;
    BankEdit wanted = change;
    if (change.bank == gui.getCurrentBank().name) wanted.bank.clear();
    askBeforeFactoryBank(gui, *this, change.bank, [this, wanted, first] { post(wanted, first); });
}

void ProgramsDialog::post(const BankEdit& change, int first)
{
    isBusy = true;
    posting = change.bank;
    firstChanged = first;
    const bool isOne = change.programs.empty() || change.kind == BankEdit::Kind::remove;
    changed = isOne ? 1 : static_cast<int>(change.programs.size());
    gui.getOrvMessageManager().postEditBank(change);
}

void ProgramsDialog::handleBankEditDone(const BankEditDone& done)
{
    const bool isMine = isBusy && (posting.empty() || done.bank == posting);
    if (isMine) isBusy = false;
    for (const Backend::Bank& bank : done.banks)
        if (bank.name == other.list->getBank().name) show(other, bank);
    show(current, gui.getCurrentBank());
    if (isMine && done.kind == BankEditDone::Kind::edited) {
        BankList& list = done.bank == other.list->getBank().name ? *other.list : *current.list;
        list.selectRows(firstChanged, changed);
    }
    if (done.kind == BankEditDone::Kind::failed)
        error->showError(tr("Not done: %1. The bank is as it was.").arg(QString::fromStdString(done.name)));
    if (done.kind == BankEditDone::Kind::stale)
        error->showError(tr("Nothing was changed: another program has changed the bank, which is shown as it is now."));
}
}  // namespace Gui::Files
