#include "gui/files/FileCommands.h"

#include <QCoreApplication>
#include <QDir>
#include <QLabel>

#include "api/Bank.h"
#include "api/OrvGuiIF.h"
#include "api/OrvMessageManager.h"
#include "api/OrvUtils.h"
#include "gui/files/SaveDialog.h"
#include "gui/framework/EditBox.h"
#include "gui/framework/EditBoxDialog.h"
#include "gui/framework/FileDialog.h"
#include "gui/framework/FileNames.h"
#include "gui/framework/Operation.h"
#include "gui/framework/Properties.h"
#include "gui/framework/Question.h"

namespace Gui::Files
{
using Backend::OrvUtils;

namespace
{
constexpr int MOST_PROGRAMS = 9999;

QString tr(const char* text) { return QCoreApplication::translate("Files", text); }

QString refuseBankSize(const QString& text)
{
    bool isNumber = false;
    const int size = text.toInt(&isNumber);
    return isNumber && size >= 1 && size <= MOST_PROGRAMS ? QString()
                                                          : tr("Enter a number from 1 to %1").arg(MOST_PROGRAMS);
}

EditBoxDialog::Doubt doubtBankSize(int oldSize, int newSize)
{
    if (newSize >= oldSize) return {};
    const QString lost =
        newSize + 1 == oldSize
            ? tr("Program %1 of the bank will be deleted. Continue?").arg(oldSize)
            : tr("Programs %1 to %2 of the bank will be deleted. Continue?").arg(newSize + 1).arg(oldSize);
    return {tr("Change Bank Size"), lost};
}

void changeBankSize(OrvGuiIF& gui, QWidget& parent, int size)
{
    if (size == gui.getNumberOfPrograms()) return;
    run(parent,
        {.title = tr("Changing Bank Size..."),
         .post = [&gui, size](const auto& window) { gui.getOrvMessageManager().postChangeBankSize(size, window); },
         .failure =
             tr("The bank could not be written; \"%1\" is as it was.").arg(shownFileName(gui.getCurrentBank().name))});
}
}  // namespace

QString getBanksFolder()
{
    const QString folder = QString::fromStdString(OrvUtils::pathIn(OrvUtils::getOrvAppDataDir(), "Banks"));
    if (!folder.isEmpty()) QDir().mkpath(folder);
    return folder;
}

QString bankFilter() { return tr("Bank Files (*.bnk)"); }

QString programFilter() { return tr("Program Files (*.prg)"); }

void showLoadDialog(OrvGuiIF& gui, QWidget& parent)
{
    showFileDialog(parent,
                   {.title = tr("Load"),
                    .filters = {bankFilter(), programFilter(), tr("Bank And Program Files (*.bnk *.prg)")},
                    .folder = getBanksFolder()},
                   [&gui](const std::string& path) { gui.loadFile(path); });
}

void showSaveDialog(OrvGuiIF& gui, QWidget& parent)
{
    auto* dialog = new SaveDialog(gui, parent);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->open();
}

void showBankSizeDialog(OrvGuiIF& gui, QWidget& parent)
{
    const int size = gui.getNumberOfPrograms();
    if (size == 0) return showMessage(parent, tr("Error"), tr("There is no bank whose size could be changed."));
    auto* dialog = new EditBoxDialog(tr("Change Bank Size"), tr("Number of programs:"), QString::number(size),
                                     EditBoxDialog::Blank::refused, parent);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    EditBox& edit = dialog->getEdit();
    Property::set(edit, Property::NOWHEEL, false);
    edit.setProperty(Property::MIN, 1);
    edit.setProperty(Property::MAX, MOST_PROGRAMS);
    dialog->addOption(new QLabel(tr("The bank is loaded again: what was not saved is lost.")));
    dialog->refuse = &refuseBankSize;
    dialog->doubt = [&gui](const QString& text) { return doubtBankSize(gui.getNumberOfPrograms(), text.toInt()); };
    QObject::connect(dialog, &QDialog::accepted, &parent,
                     [dialog, &gui, &parent] { changeBankSize(gui, parent, dialog->getText().toInt()); });
    dialog->open();
}

void makeDefaultBank(OrvGuiIF& gui, QWidget& parent)
{
    const std::string path = gui.getCurrentBank().name;
    if (path.empty()) return showMessage(parent, tr("Error"), tr("There is no bank."));
    ask(parent, tr("Default Bank"),
        tr("\"%1\" will be loaded at every start, and now: what was not saved is lost. Continue?")
            .arg(shownFileName(path)),
        [&gui, path] { gui.getOrvMessageManager().postSetDefaultBank(path); });
}
}  // namespace Gui::Files
