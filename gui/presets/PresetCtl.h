#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>

#include "gui/presets/PresetGuiOwner.h"

class QPushButton;

namespace Gui
{
class ComboBox;
class OrvGuiIF;
class PopupMenu;
}  // namespace Gui

namespace Gui::Preset
{
class PresetsDialog;

/// A row of a section's screen: which preset it came from, the list of all to load one from, and a menu to save and
/// change them. The GUI thread.
class PresetCtl final : public QWidget, public PresetGuiOwner
{
public:
    /// What the section's message manager does; all post but the last, which a section has where one can select.
    struct Commands {
        std::function<void(const std::string& name)> load;
        std::function<void(const std::string& name, bool selectedOnly)> save;
        std::function<void(const std::string& oldName, const std::string& newName)> rename;
        std::function<void(const std::string& name)> remove;
        std::function<bool()> hasSelection{};
    };

    static constexpr int HEIGHT = 20;

    /// `name` is the accessible one: "Preset of the keys".
    PresetCtl(OrvGuiIF& gui, const QString& name, Commands sectionCommands, QWidget* parent);
    ~PresetCtl() override;

    // What the backend tells
    void setPresets(const Backend::PresetList& presets);
    /// The preset that the section came from, empty for none.
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

    const Commands commands;
    Backend::PresetList list;
    std::string current;
    ComboBox* choices;  // these belong to the control, as Qt has it
    QPushButton* button;
    PopupMenu* menu;
    QPointer<PresetsDialog> dialog;
};
}  // namespace Gui::Preset
