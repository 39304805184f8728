#include "gui/files/FileCommands.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <utility>

#include "api/Bank.h"
#include "api/OrvGuiIF.h"
#include "api/OrvMessageManager.h"
#include "api/OrvUtils.h"
#include "backend/files/RegistrySettings.h"
#include "backend/messages/SettingMessages.h"
#include "backend/model/BankEdit.h"
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
         .done = [&gui, size] { gui.displayMessage(tr("The bank has %1 programs now").arg(size).toStdString()); },
         .failure =
             tr("The bank could not be written; \"%1\" is as it was.").arg(shownFileName(gui.getCurrentBank().name))});
}
}  // namespace

namespace
{
QString getBanksFolder()
{
    const QString folder = QString::fromStdString(OrvUtils::pathIn(OrvUtils::getOrvAppDataDir(), "Banks"));
    if (!folder.isEmpty()) QDir().mkpath(folder);
    return folder;
}

std::string folderOfFactoryBanks()
{
    return OrvUtils::pathIn(OrvUtils::pathIn(OrvUtils::getOrvProgDir(), "Default"), "Banks");
}

/// Whether a bank is still as it was installed.
bool isFactoryBank(const std::string& path)
{
    const QFileInfo bank(QString::fromStdString(path));
    const QFileInfo installed(QDir(QString::fromStdString(folderOfFactoryBanks())), bank.fileName());
    if (!installed.isFile() || installed.size() != bank.size()) return false;
    QFile one(bank.filePath()), two(installed.filePath());
    return one.open(QIODevice::ReadOnly) && two.open(QIODevice::ReadOnly) && one.readAll() == two.readAll();
}
}  // namespace

void chooseFile(OrvGuiIF& gui, QWidget& parent, FileQuestion question,
                std::function<void(const std::string& path)> chosen)
{
    namespace Settings = Backend::Settings;
    const QString last = QString::fromStdString(gui.getRegistrySettings().get<Settings::FILE_FOLDER>());
    question.folder = !last.isEmpty() && QFileInfo(last).isDir() ? last : getBanksFolder();
    showFileDialog(parent, question, [&gui, chosen = std::move(chosen)](const std::string& path) {
        const QString folder = QFileInfo(QString::fromStdString(path)).absolutePath();
        gui.getOrvMessageManager().postSetting(Backend::SETTING<Settings::FILE_FOLDER>(folder.toStdString()));
        chosen(path);
    });
}

void askBeforeFactoryBank(OrvGuiIF& gui, QWidget& parent, const std::string& path, std::function<void()> goOn)
{
    if (!isFactoryBank(path)) return goOn();
    ask(parent, tr("Factory Bank"),
        tr("\"%1\" is as it was installed. Do you want to keep it, and to continue in a bank of your own?")
            .arg(shownFileName(path)),
        {tr("Change It"), goOn}, {tr("My Own Bank..."), [&gui, &parent, goOn] { saveBankAs(gui, parent, goOn); }});
}

QString bankFilter() { return tr("Bank Files (*.bnk)"); }

QString programFilter() { return tr("Program Files (*.prg)"); }

void showLoadDialog(OrvGuiIF& gui, QWidget& parent)
{
    chooseFile(
        gui, parent,
        {.title = tr("Load"), .filters = {bankFilter(), programFilter(), tr("Bank And Program Files (*.bnk *.prg)")}},
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
        tr("\"%1\" becomes the default bank and is loaded now: what was not saved is lost. Continue?")
            .arg(shownFileName(path)),
        [&gui, path] {
            gui.getOrvMessageManager().postSetDefaultBank(path);
            gui.displayMessage(tr("\"%1\" is the default bank").arg(shownFileName(path)).toStdString());
        });
}

namespace
{
FileQuestion questionForBank(const QString& title)
{
    return {.purpose = FileQuestion::Purpose::save,
            .title = title,
            .filters = {bankFilter()},
            .extension = QStringLiteral("bnk")};
}

void writeBank(OrvGuiIF& gui, QWidget& parent, const std::string& path, Backend::NewBank content,
               std::function<void()> done)
{
    run(parent, {.title = tr("Writing Bank..."),
                 .post = [&gui, path, content](
                             const auto& window) { gui.getOrvMessageManager().postMakeBank(path, content, window); },
                 .done =
                     [&gui, path, done = std::move(done)] {
                         gui.displayMessage(tr("The bank is \"%1\" now").arg(shownFileName(path)).toStdString());
                         if (done) done();
                     },
                 .failure = tr("The bank \"%1\" could not be written.").arg(shownFileName(path))});
}
}  // namespace

void makeNewBank(OrvGuiIF& gui, QWidget& parent)
{
    FileQuestion question = questionForBank(tr("New Bank"));
    question.asksToReplace = false;
    chooseFile(gui, parent, question, [&gui, &parent](const std::string& path) {
        if (QFileInfo::exists(QString::fromStdString(path)))
            return showMessage(parent, tr("Error"),
                               tr("\"%1\" is there already. A new bank needs a new name.").arg(shownFileName(path)));
        gui.askBeforeLoss(OrvGuiIF::Loss::ofAll,
                          [&gui, &parent, path] { writeBank(gui, parent, path, Backend::NewBank::empty, {}); });
    });
}

void saveBankAs(OrvGuiIF& gui, QWidget& parent, std::function<void()> done)
{
    const std::string bank = gui.getCurrentBank().name;
    if (bank.empty()) return showMessage(parent, tr("Error"), tr("There is no bank."));
    chooseFile(gui, parent, questionForBank(tr("Save Bank As")),
               [&gui, &parent, bank, done = std::move(done)](const std::string& path) {
                   if (QFileInfo(QString::fromStdString(path)) == QFileInfo(QString::fromStdString(bank)))
                       return showMessage(parent, tr("Error"), tr("This is the bank that is loaded."));
                   writeBank(gui, parent, path, Backend::NewBank::copy, done);
               });
}
}  // namespace Gui::Files
