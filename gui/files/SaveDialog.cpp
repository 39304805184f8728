#include "gui/files/SaveDialog.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <utility>

#include "api/OrvGuiIF.h"
#include "api/OrvMessageManager.h"
#include "gui/files/FileCommands.h"
#include "gui/framework/EditBox.h"
#include "gui/framework/FileDialog.h"
#include "gui/framework/FileNames.h"
#include "gui/framework/ManualButton.h"
#include "gui/framework/Operation.h"
#include "gui/framework/Properties.h"
#include "gui/framework/Question.h"

namespace Gui::Files
{
namespace
{
constexpr QSize LIST(380, 200);

/// A bank that another program has changed is replaced only after a question.
void runSave(OrvGuiIF& gui, QWidget& parent, Operation save, const QString& file)
{
    Operation again = save;
    save.changed = [&gui, &parent, again, file] {
        ask(parent, SaveDialog::tr("File Changed"),
            SaveDialog::tr("\"%1\" was changed by another program since it was read. Its other programs stay as they "
                           "are now; this one is replaced.")
                .arg(file),
            {SaveDialog::tr("Replace"), [&gui, &parent, again, file] { runSave(gui, parent, again, file); }},
            {SaveDialog::tr("Save Elsewhere..."), [&gui] { gui.showSaveDialog(); }});
    };
    run(parent, save);
}
}  // namespace

SaveDialog::SaveDialog(OrvGuiIF& owner, QWidget& parent)
    : QDialog(&parent),
      gui(owner),
      name(new EditBox),
      currentBank(new QRadioButton),
      anotherBank(new QRadioButton(tr("In another bank, or a new one..."))),
      programFile(new QRadioButton(tr("As a program file..."))),
      programs(new QListWidget)
{
    setWindowTitle(tr("Save"));
    auto* column = new QVBoxLayout(this);
    auto* label = new QLabel(tr("Program name:"));
    label->setBuddy(name);
    name->setAccessibleName(tr("Program name"));
    Property::set(*name, Property::NOWHEEL, true);
    Property::setHelp(*name, tr("The name of the program, as the bank will show it."));
    column->addWidget(label);
    column->addWidget(name);
    addTargets();
    addButtons();
    showBank();
    name->selectAll();
}

void SaveDialog::addTargets()
{
    Property::setHelp(*currentBank, tr("Into the bank that is loaded, in place of the program chosen below."));
    Property::setHelp(*anotherBank, tr("Into another bank, in place of its program of the same number, or into a new "
                                       "one. That bank is loaded then."));
    Property::setHelp(*programFile, tr("Into a file of its own (.prg)."));
    programs->setMinimumSize(LIST);
    programs->setAccessibleName(tr("Program to replace"));
    Property::setHelp(*programs, tr("The program of the bank that this one replaces."));
    connect(programs, &QListWidget::itemDoubleClicked, this, &QDialog::accept);
    connect(currentBank, &QRadioButton::toggled, programs, &QWidget::setEnabled);
    for (QWidget* row : {static_cast<QWidget*>(currentBank), static_cast<QWidget*>(programs),
                         static_cast<QWidget*>(anotherBank), static_cast<QWidget*>(programFile)})
        layout()->addWidget(row);
}

void SaveDialog::addButtons()
{
    auto* row = new QHBoxLayout;
    addManualButton(*row, "save.htm");
    row->addStretch();
    auto* save = new QPushButton(tr("Save"));
    save->setDefault(true);
    connect(save, &QPushButton::clicked, this, &QDialog::accept);
    auto* cancel = new QPushButton(tr("Cancel"));
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    row->addWidget(save);
    row->addWidget(cancel);
    static_cast<QVBoxLayout*>(layout())->addLayout(row);
}

/// Shows the present bank and program.
void SaveDialog::showBank()
{
    bank = gui.getCurrentBank();
    program = gui.getCurrentProgram();
    name->setText(QString::fromStdString(program.name));
    currentBank->setText(tr("In the bank \"%1\", in place of:").arg(shownFileName(bank.name)));
    programs->clear();
    int number = 0;
    for (const std::string& each : bank.programNames)
        programs->addItem(QString::number(++number) + ": " + QString::fromStdString(each));
    programs->setCurrentRow(program.number);
    currentBank->setEnabled(!bank.programNames.empty());
    anotherBank->setEnabled(!bank.name.empty());
    (bank.programNames.empty() ? programFile : currentBank)->setChecked(true);
    programs->setEnabled(currentBank->isChecked());
}

bool SaveDialog::isUpToDate() const
{
    const Backend::Program& now = gui.getCurrentProgram();
    return gui.getCurrentBank() == bank && now.number == program.number && now.name == program.name;
}

QString SaveDialog::refusal() const
{
    if (name->text().trimmed().isEmpty()) return tr("Name cannot be blank");
    if (currentBank->isChecked() && programs->currentRow() < 0) return tr("Choose the program to replace.");
    return {};
}

void SaveDialog::accept()
{
    if (!isUpToDate()) {
        showBank();
        return showMessage(*this, tr("Error"),
                           tr("Another program was loaded in the meantime. The dialog shows that one now."));
    }
    if (const QString reason = refusal(); !reason.isEmpty()) return showMessage(*this, tr("Error"), reason);
    if (currentBank->isChecked()) return saveToCurrentBank();
    anotherBank->isChecked() ? saveToAnotherBank() : saveToProgram();
}

/// Saving a program in its own place is not confirmed, unless the name there is another one.
void SaveDialog::saveToCurrentBank()
{
    const int number = programs->currentRow();
    const std::string& old = bank.programNames[static_cast<std::size_t>(number)];
    const auto go = [this, number] {
        askBeforeFactoryBank(gui, *this, bank.name, [this, number] {
            if (gui.getCurrentBank().programNames == bank.programNames) bank = gui.getCurrentBank();  // their own
            save(bank.name, number, [&backend = gui.getOrvMessageManager(), number](const auto& window) {
                backend.postSaveToCurrentBank(number, window);
            });
        });
    };
    if (number == program.number && old == name->text().trimmed().toStdString()) return go();
    ask(*this, tr("Confirm Overwrite"),
        tr("Program %1 \"%2\" will be replaced. Continue?").arg(number + 1).arg(QString::fromStdString(old)), go);
}

void SaveDialog::saveToAnotherBank()
{
    chooseFile(gui, *this,
               {.purpose = FileQuestion::Purpose::save,
                .title = tr("Save To Bank"),
                .filters = {bankFilter()},
                .extension = QStringLiteral("bnk"),
                .asksToReplace = false},
               [this](const std::string& path) { askToReplaceIn(path); });
}

/// A bank that is not there yet is made without a question.
void SaveDialog::askToReplaceIn(const std::string& path)
{
    const auto go = [this, path] {
        save(path, program.number, [&backend = gui.getOrvMessageManager(), path](const auto& window) {
            backend.postSaveToBank(path, window);
        });
    };
    if (!QFileInfo::exists(QString::fromStdString(path))) return go();
    const std::vector<std::string> names = Backend::Bank::fromFile(path).programNames;
    const auto number = static_cast<std::size_t>(program.number);
    const QString place = QString::number(program.number + 1);
    const QString file = shownFileName(path);
    if (number >= names.size())
        return showMessage(*this, tr("Error"),
                           tr("\"%1\" has no program %2 that this one could replace.").arg(file, place));
    ask(*this, tr("Confirm Overwrite"),
        tr("Program %1 \"%2\" of \"%3\" will be replaced. Continue?")
            .arg(place, QString::fromStdString(names[number]), file),
        go);
}

void SaveDialog::saveToProgram()
{
    chooseFile(gui, *this,
               {.purpose = FileQuestion::Purpose::save,
                .title = tr("Save To Program File"),
                .filters = {programFilter()},
                .extension = QStringLiteral("prg"),
                .name = asFileName(name->text(), tr("Program")) + ".prg"},
               [this](const std::string& path) {
                   save(path, program.number, [&backend = gui.getOrvMessageManager(), path](const auto& window) {
                       backend.postSaveToProgram(path, window);
                   });
               });
}

/// If another program was loaded while a question was open, nothing is saved and the dialog says so.
void SaveDialog::save(const std::string& target, int number, std::function<void(const WindowHandle& window)> post)
{
    if (!isUpToDate()) return accept();
    const std::string newName = name->text().trimmed().toStdString();
    if (newName != program.name) gui.getOrvMessageManager().postChangeProgramName(newName);
    QDialog::accept();
    const QString saved = shownFileName(target).section('.', 0, -2);
    const bool isProgram = QString::fromStdString(target).endsWith(QLatin1String(".prg"));
    const QString text =
        isProgram ? tr("Saved as %1").arg(saved) : tr("Saved to %1, program %2").arg(saved).arg(number + 1);
    runSave(gui, *parentWidget(),
            {.title = tr("Saving..."),
             .post = std::move(post),
             .done = [&window = gui, text] { window.displayMessage(text.toStdString()); },
             .failure = tr("The program could not be saved; \"%1\" is as it was.").arg(shownFileName(target))},
            shownFileName(target));
}
}  // namespace Gui::Files
