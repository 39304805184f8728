#include "gui/screens/setup/BankField.h"

#include <QBoxLayout>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QPushButton>

#include "api/Bank.h"
#include "api/OrvGuiIF.h"
#include "api/OrvMessageManager.h"
#include "backend/files/RegistrySettings.h"
#include "gui/framework/EditBox.h"
#include "gui/framework/Properties.h"

namespace Gui::Setup
{
namespace
{
constexpr int BUTTON_WIDTH = 120;
}

BankField::BankField(OrvGuiIF& owner, QBoxLayout& page) : gui(owner), edit(new EditBox)
{
    auto* label = new QLabel(EditBox::tr("Default bank:"));
    label->setBuddy(edit);
    page.addWidget(label);
    edit->setAccessibleName(EditBox::tr("Default bank"));
    Property::setHelp(*edit, EditBox::tr("Default bank: a start loads it that does not begin where Orvane was "
                                         "closed, and it is loaded at once if you change it. "
                                         "Leave it empty for the bank in your banks folder."));
    Property::set(*edit, Property::TEXT, true);
    Property::set(*edit, Property::NOWHEEL, true);
    page.addWidget(edit);
    addButtons(page);
}

void BankField::addButtons(QBoxLayout& page)
{
    auto* line = new QHBoxLayout;
    const auto add = [line](const QString& label, const QString& name, const QString& help) {
        auto* button = new QPushButton(label);
        button->setAccessibleName(name);
        Property::setHelp(*button, help);
        button->setMinimumWidth(BUTTON_WIDTH);
        line->addWidget(button);
        return button;
    };
    const auto* browse = add(EditBox::tr("CHOOSE..."), EditBox::tr("Choose default bank"),
                             EditBox::tr("Chooses the file of a bank (.bnk)."));
    QObject::connect(browse, &QPushButton::clicked, edit, [this] { choose(); });
    const auto* current = add(EditBox::tr("CURRENT BANK"), EditBox::tr("Current bank as default"),
                              EditBox::tr("Takes the bank that is loaded now."));
    QObject::connect(current, &QPushButton::clicked, edit,
                     [this] { show(QString::fromStdString(gui.getCurrentBank().name)); });
    line->addStretch();
    page.addLayout(line);
}

/// Returns at once.
void BankField::choose()
{
    const QString from = getShown().isEmpty() ? QString::fromStdString(gui.getCurrentBank().name) : getShown();
    auto* files = new QFileDialog(edit->window(), EditBox::tr("Default Bank"), QFileInfo(from).path(),
                                  EditBox::tr("Bank Files (*.bnk)"));
    files->setAttribute(Qt::WA_DeleteOnClose);
    files->setFileMode(QFileDialog::ExistingFile);
    QObject::connect(files, &QFileDialog::fileSelected, edit,
                     [this](const QString& path) { show(QDir::toNativeSeparators(path)); });
    files->open();
}

QString BankField::findFault() const
{
    if (getShown().isEmpty() || QFileInfo(getShown()).isFile()) return {};
    return EditBox::tr("There is no bank \"%1\".").arg(getShown());
}

QString BankField::getQuestion() const
{
    if (getShown().isEmpty()) return {};
    return EditBox::tr("\"%1\" becomes the default bank and is loaded now: what was not saved is lost. Continue?")
        .arg(QFileInfo(getShown()).fileName());
}

/// An absolute path, valid from any folder.
void BankField::post() const
{
    const QString path = getShown().isEmpty() ? QString() : QFileInfo(getShown()).absoluteFilePath();
    gui.getOrvMessageManager().postSetDefaultBank(QDir::toNativeSeparators(path).toStdString());
}

QWidget& BankField::getControl() const { return *edit; }

QString BankField::getKnown() const { return QString::fromStdString(gui.getRegistrySettings().getDefaultBank()); }

QString BankField::getShown() const { return edit->text().trimmed(); }

void BankField::show(const QString& path) { edit->setText(path); }
}  // namespace Gui::Setup
