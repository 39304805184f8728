#include "gui/screens/setup/FileField.h"

#include <QBoxLayout>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QPushButton>

#include "api/OrvGuiIF.h"
#include "backend/files/RegistrySettings.h"
#include "gui/framework/EditBox.h"
#include "gui/framework/Properties.h"
#include "gui/screens/setup/SettingTables.h"

namespace Gui::Setup
{
namespace
{
constexpr int BUTTON_WIDTH = 120;
}

FileField::FileField(OrvGuiIF& owner, const File& fileRow, QBoxLayout& page)
    : EditField(owner, fileRow.name, fileRow.help), row(fileRow), buttons(new QHBoxLayout)
{
    auto* label = new QLabel(EditBox::tr(row.label));
    label->setBuddy(edit);
    page.addWidget(label);
    Property::set(*edit, Property::NOWHEEL, true);
    page.addWidget(edit);
    buttons->addStretch();
    page.addLayout(buttons);
    auto& browse = addButton(EditBox::tr("CHOOSE..."), EditBox::tr(row.chooseName), EditBox::tr(row.chooseHelp));
    QObject::connect(&browse, &QPushButton::clicked, edit, [this] { choose(); });
}

QPushButton& FileField::addButton(const QString& label, const QString& name, const QString& help)
{
    auto* button = new QPushButton(label);
    button->setAccessibleName(name);
    Property::setHelp(*button, help);
    button->setMinimumWidth(BUTTON_WIDTH);
    buttons->insertWidget(buttons->count() - 1, button);
    return *button;
}

/// Returns at once.
void FileField::choose()
{
    const QString from = getShown().isEmpty() ? getUsual() : getShown();
    auto* files =
        new QFileDialog(edit->window(), EditBox::tr(row.title), QFileInfo(from).path(), EditBox::tr(row.filter));
    files->setAttribute(Qt::WA_DeleteOnClose);
    files->setFileMode(QFileDialog::ExistingFile);
    QObject::connect(files, &QFileDialog::fileSelected, edit,
                     [this](const QString& path) { show(QDir::toNativeSeparators(path)); });
    files->open();
}

QString FileField::findFault() const
{
    if (getShown().isEmpty() || QFileInfo(getShown()).isFile()) return {};
    return EditBox::tr(row.missing).arg(getShown());
}

/// An absolute path, valid from any folder.
void FileField::post() const
{
    const QString path = getShown().isEmpty() ? QString() : QFileInfo(getShown()).absoluteFilePath();
    row.post(gui.getOrvMessageManager(), QDir::toNativeSeparators(path).toStdString());
}

QString FileField::getKnown() const { return QString::fromStdString(row.get(gui.getRegistrySettings())); }
}  // namespace Gui::Setup
