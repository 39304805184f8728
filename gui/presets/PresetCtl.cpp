#include "gui/presets/PresetCtl.h"

#include <QPushButton>
#include <utility>

#include "api/OrvGuiIF.h"
#include "gui/framework/ComboBox.h"
#include "gui/framework/PopupMenu.h"
#include "gui/framework/Properties.h"
#include "gui/presets/PresetsDialog.h"

namespace Gui::Preset
{
namespace
{
constexpr int BUTTON_WIDTH = 66;  // logical pixels
constexpr int GAP = 4;
}  // namespace

PresetCtl::PresetCtl(OrvGuiIF& owner, const QString& name, Commands sectionCommands, QWidget* parent)
    : QWidget(parent),
      gui(owner),
      gdi(owner.getGdiManager()),
      commands(std::move(sectionCommands)),
      choices(new ComboBox(owner, ComboBox::Typing::readOnly, this)),
      button(new QPushButton(tr("Presets"), this)),
      menu(new PopupMenu(this))
{
    choices->setAccessibleName(name);
    Property::setHelp(*choices, tr("Preset: choose one to load it. What a preset does not name stays or goes, as it "
                                   "was saved."));
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

// --- changes that the backend reports

void PresetCtl::setPresets(const Backend::PresetList& presets)
{
    list = presets;
    if (list.find(saving) != nullptr)
        gui.displayMessage(tr("Saved preset %1").arg(QString::fromStdString(saving)).toStdString());
    saving.clear();
    listChanged();
}

void PresetCtl::showCurrent(const std::string& name)
{
    current = name;
    const auto& entries = list.getEntries();
    const auto* entry = list.find(name);
    choices->setSelectedIndex(entry == nullptr ? -1 : static_cast<int>(entry - entries.data()));
    if (entry == nullptr) choices->setText(name.empty() ? tr("none") : QString::fromStdString(name));
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

void PresetCtl::addPreset(const std::string& name, bool selectedOnly)
{
    commands.save(name, selectedOnly);
    saving = name;
    list.add({.name = name});
    listChanged();
}

void PresetCtl::renamePreset(const std::string& oldName, const std::string& newName)
{
    commands.rename(oldName, newName);
    list.rename(oldName, newName);
    listChanged();
}

void PresetCtl::deletePreset(const std::string& name)
{
    commands.remove(name);
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
