#include "gui/presets/PresetCtl.h"

#include <QPushButton>
#include <string_view>
#include <utility>

#include "api/OrvGuiIF.h"
#include "gui/framework/ComboBox.h"
#include "gui/framework/PopupMenu.h"
#include "gui/framework/Properties.h"
#include "gui/presets/PresetsDialog.h"

namespace Gui::Preset
{
using namespace Backend;

namespace
{
constexpr int BUTTON_WIDTH = 66;  // logical pixels
constexpr int GAP = 4;
}  // namespace

PresetCtl::PresetCtl(OrvGuiIF& owner, const PresetSection& presetSection, QWidget* parent, Selection selected)
    : QWidget(parent),
      gui(owner),
      gdi(owner.getGdiManager()),
      section(presetSection),
      commands(commandsOf(owner, presetSection)),
      selection(std::move(selected)),
      list(owner.getPresetList(presetSection)),
      choices(new ComboBox(owner, ComboBox::Typing::readOnly, this)),
      button(new QPushButton(tr("Presets"), this)),
      menu(new PopupMenu(this))
{
    const QString name = nameOf(section);
    choices->setAccessibleName(name);
    Property::setHelp(*choices,
                      tr("Preset: choose one to load it. What a preset does not name stays or goes, as it was "
                         "saved. A star marks what was edited since."));
    Property::set(*choices, Property::TEXT, true);
    choices->onChange = [this](int index) { commands.load(list.getEntries()[static_cast<std::size_t>(index)].name); };
    button->setAccessibleName(tr("%1: save and edit").arg(name));
    Property::setHelp(*button, tr("Presets: saves what is here as a preset, renames and deletes presets."));
    button->setFocusPolicy(Qt::TabFocus);
    connect(button, &QPushButton::clicked, this, [this] { showMenu(); });
    listChanged();
}

PresetCtl::~PresetCtl() { delete dialog; }

void PresetCtl::resizeEvent(QResizeEvent*)
{
    const int wide = gdi.px(BUTTON_WIDTH);
    choices->setGeometry(0, 0, width() - wide - gdi.px(GAP), height());
    button->setGeometry(width() - wide, 0, wide, height());
}

std::vector<PresetCtl*> PresetCtl::findAll(const QWidget& window, const PresetSection& section)
{
    std::vector<PresetCtl*> rows;
    for (QWidget* each : window.findChildren<QWidget*>())
        if (auto* row = dynamic_cast<PresetCtl*>(each);
            row != nullptr && std::string_view(row->section.folder) == section.folder)
            rows.push_back(row);
    return rows;
}

// --- changes that the backend reports

void PresetCtl::setPresets(const PresetList& presets, bool done)
{
    list = presets;
    if (done && list.find(saving) != nullptr)
        gui.displayMessage(tr("Saved preset %1").arg(QString::fromStdString(saving)).toStdString());
    saving.clear();
    listChanged();
    if (done) return failure.clear();
    if (dialog == nullptr || !dialog->isVisible()) showDialog();
    const QString reason = tr("The folder \"%1\" could not be changed.").arg(section.folder);
    dialog->showError(failure.isEmpty() ? reason : failure + ' ' + reason);
}

void PresetCtl::showCurrent(const std::string& name)
{
    current = name;
    const auto& entries = list.getEntries();
    const auto* entry = list.find(name);
    choices->setSelectedIndex(entry == nullptr ? -1 : static_cast<int>(entry - entries.data()));
    const QString shown = name.empty() ? tr("none") : QString::fromStdString(name);
    choices->setText(isEdited && !name.empty() ? shown + QStringLiteral(" *") : shown);
    choices->home(false);
}

void PresetCtl::showEdited(bool on)
{
    isEdited = on;
    showCurrent(current);
}

void PresetCtl::listChanged()
{
    std::vector<ComboBox::Entry> entries;
    for (const auto& entry : list.getEntries()) entries.push_back({.text = QString::fromStdString(entry.name)});
    choices->setEntries(std::move(entries));
    showCurrent(current);
    if (dialog != nullptr) dialog->refill();
}

// --- what the user does

std::string PresetCtl::fileOf(const std::string& name) const
{
    return std::string(section.folder) + "/" + name + ".pst";
}

void PresetCtl::addPreset(const std::string& name, bool selectedOnly)
{
    commands.save(name, selectedOnly && selection ? selection() : std::vector<RecordId>());
    saving = name;
    failure = tr("\"%1\" was not saved.").arg(QString::fromStdString(name));
    list.add({.name = name});
    listChanged();
}

void PresetCtl::renamePreset(const std::string& oldName, const std::string& newName)
{
    commands.rename(oldName, newName);
    failure = tr("\"%1\" was not renamed.").arg(QString::fromStdString(oldName));
    list.rename(oldName, newName);
    listChanged();
}

void PresetCtl::deletePreset(const std::string& name)
{
    commands.remove(name);
    failure = tr("\"%1\" was not deleted.").arg(QString::fromStdString(name));
    list.remove(name);
    listChanged();
}

void PresetCtl::showMenu()
{
    menu->clear();
    menu->addItem(tr("Save Preset As..."));
    menu->addItem(tr("Edit Presets..."));
    menu->onChosen = [this](int item) { item == 0 ? showAddPresetDialog(*this, *this) : showDialog(); };
    menu->showBelow(*button);
}

void PresetCtl::showDialog()
{
    dialog = new PresetsDialog(*this, *this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->open();
}
}  // namespace Gui::Preset
