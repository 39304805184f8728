#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>

#include "gui/presets/PresetGuiOwner.h"

class QPushButton;

namespace Gui
{
class ComboBox;
class GdiManager;
class OrvGuiIF;
class PopupMenu;
}  // namespace Gui

namespace Gui::Preset
{
class PresetsDialog;

/// A row of a section's screen: the name of the preset that is loaded, the list of presets to load, and a menu to save
/// and edit them. The GUI thread.
class PresetCtl final : public QWidget, public PresetGuiOwner
{
public:
    /// The commands of the section's message manager. `hasSelection` is set for sections with a selection.
    struct Commands {
        std::function<void(const std::string& name)> load;
        std::function<void(const std::string& name, bool selectedOnly)> save;
        std::function<void(const std::string& oldName, const std::string& newName)> rename;
        std::function<void(const std::string& name)> remove;
        std::function<bool()> hasSelection{};
    };

    static constexpr int HEIGHT = 22;  ///< logical pixels

    /// `name` is its accessible name: "Preset of the keys".
    PresetCtl(OrvGuiIF& owner, const QString& name, Commands sectionCommands, QWidget* parent);
    ~PresetCtl() override;

    // Changes that the backend reports
    void setPresets(const Backend::PresetList& presets);
    /// The preset that the section was loaded from; empty for none.
    void showCurrent(const std::string& name);

    void addPreset(const std::string& name, bool selectedOnly) override;
    void renamePreset(const std::string& oldName, const std::string& newName) override;
    void deletePreset(const std::string& name) override;
    const Backend::PresetList& getPresetList() const override { return list; }
    bool hasSelection() const override { return commands.hasSelection && commands.hasSelection(); }

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void showMenu();
    void showDialog();
    void listChanged();

    OrvGuiIF& gui;
    const GdiManager& gdi;
    const Commands commands;
    Backend::PresetList list;
    std::string current;
    std::string saving;  // the preset that the backend writes; empty for none
    ComboBox* choices;   // owned by their Qt parents
    QPushButton* button;
    PopupMenu* menu;
    QPointer<PresetsDialog> dialog;
};
}  // namespace Gui::Preset
