#include "gui/presets/PresetsDialog.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QFileInfo>
#include <QGridLayout>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "api/OrvUtils.h"
#include "gui/framework/EditBoxDialog.h"
#include "gui/framework/ErrorLine.h"
#include "gui/framework/FileNames.h"
#include "gui/framework/ManualButton.h"
#include "gui/framework/Properties.h"
#include "gui/framework/Question.h"
#include "gui/presets/PresetGuiOwner.h"

namespace Gui::Preset
{
using Backend::OrvUtils;

namespace
{
constexpr QSize LIST(260, 220);
constexpr const char* HELP_TOPIC = "presets.htm";

QString tr(const char* text) { return QCoreApplication::translate("PresetsDialog", text); }

QString refusePresetName(const QString& name)
{
    return name.isEmpty() ? tr("Name cannot be blank") : refuseFileName(name);
}

/// Whether saving under that name replaces a preset: one of the list, or one that another window has saved since.
bool isTaken(const PresetGuiOwner& owner, const QString& name)
{
    const std::string file = OrvUtils::pathIn(OrvUtils::getOrvAppDataDir(), owner.fileOf(name.toStdString()));
    return owner.getPresetList().find(name.toStdString()) != nullptr || QFileInfo::exists(QString::fromStdString(file));
}

EditBoxDialog& makeNameDialog(const QString& title, const QString& startText, QWidget& parent)
{
    auto* dialog = new EditBoxDialog(title, tr("Name:"), startText, EditBoxDialog::Blank::refused, parent);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->refuse = &refusePresetName;
    return *dialog;
}
}  // namespace

void showAddPresetDialog(PresetGuiOwner& owner, QWidget& parent)
{
    EditBoxDialog& dialog = makeNameDialog(tr("Add Preset"), {}, parent);
    auto* selectedOnly = new QCheckBox(tr("Selected Only"));
    Property::setHelp(
        *selectedOnly,
        tr("Saves the selected rows alone. When such a preset is loaded, its rows are added to those that are there."));
    selectedOnly->setEnabled(owner.hasSelection());
    dialog.addOption(selectedOnly);
    dialog.doubt = [&owner](const QString& name) -> EditBoxDialog::Doubt {
        if (!isTaken(owner, name)) return {};
        return {tr("Confirm Overwrite"), tr("Preset already exists. Overwrite?")};
    };
    QObject::connect(&dialog, &QDialog::accepted, &parent, [&owner, &dialog, selectedOnly] {
        owner.addPreset(dialog.getText().toStdString(), selectedOnly->isChecked());
    });
    dialog.open();
}

PresetsDialog::PresetsDialog(PresetGuiOwner& presetOwner, QWidget& parent)
    : QDialog(&parent), owner(presetOwner), names(new QListWidget), error(new ErrorLine)
{
    setWindowTitle(tr("Presets"));
    names->setMinimumSize(LIST);
    names->setAccessibleName(tr("Presets"));
    Property::setHelp(*names, tr("The presets of this section. A double click on one changes its name."));
    connect(names, &QListWidget::itemDoubleClicked, this, [this] { editPreset(); });

    auto* grid = new QGridLayout(this);
    grid->addWidget(names, 0, 0);
    auto* column = new QVBoxLayout;
    addButton(*column, tr("Add"), tr("Saves this section as a preset."), &PresetsDialog::addPreset);
    addButton(*column, tr("Delete"), tr("Deletes the selected preset, after asking."), &PresetsDialog::deletePreset);
    addButton(*column, tr("Edit"), tr("Renames the selected preset."), &PresetsDialog::editPreset);
    column->addStretch();
    addManualButton(*column, HELP_TOPIC);
    auto* close = new QPushButton(tr("Close"));
    close->setDefault(true);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    column->addWidget(close);
    grid->addLayout(column, 0, 1);
    grid->addWidget(error, 1, 0, 1, 2);
    refill();
}

void PresetsDialog::addButton(QBoxLayout& column, const QString& label, const QString& help,
                              void (PresetsDialog::*action)())
{
    auto* button = new QPushButton(label);
    button->setAutoDefault(false);
    Property::setHelp(*button, help);
    connect(button, &QPushButton::clicked, this, [this, action] {
        showError({});
        (this->*action)();
    });
    column.addWidget(button);
}

/// Keeps the selection if that preset is still there.
void PresetsDialog::refill()
{
    const QString selected = selectedName();
    names->clear();
    for (const auto& entry : owner.getPresetList().getEntries()) {
        auto* item = new QListWidgetItem(QString::fromStdString(entry.name), names);
        if (item->text() == selected) names->setCurrentItem(item);
    }
}

void PresetsDialog::showError(const QString& text) { error->showError(text); }

QString PresetsDialog::selectedName() const
{
    const auto* item = names->currentItem();
    return item != nullptr && item->isSelected() ? item->text() : QString();
}

void PresetsDialog::addPreset() { showAddPresetDialog(owner, *this); }

void PresetsDialog::deletePreset()
{
    const QString name = selectedName();
    if (name.isEmpty()) return;
    ask(*this, tr("Delete Preset"), tr("Are you sure you want to delete?"),
        [this, name] { owner.deletePreset(name.toStdString()); });
}

void PresetsDialog::editPreset()
{
    const QString name = selectedName();
    if (name.isEmpty()) return;
    EditBoxDialog& dialog = makeNameDialog(tr("Edit Preset Name"), name, *this);
    dialog.warn = [this, name](const QString& newName) {
        const bool replaces = newName != name && isTaken(owner, newName);
        return replaces ? tr("Another preset has this name. OK once more replaces it.") : QString();
    };
    connect(&dialog, &QDialog::accepted, this,
            [this, name, &dialog] { owner.renamePreset(name.toStdString(), dialog.getText().toStdString()); });
    dialog.open();
}
}  // namespace Gui::Preset
