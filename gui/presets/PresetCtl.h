#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>
#include <vector>

#include "gui/presets/PresetCommands.h"
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

/// A row of a section's screen: the preset that the section was loaded from or saved as, with a star if the section was
/// edited since, the list of presets to load, and a menu to save and edit them. The GUI thread.
class PresetCtl final : public QWidget, public PresetGuiOwner
{
public:
    /// Returns the records that are selected.
    using Selection = std::function<std::vector<Backend::RecordId>()>;

    static constexpr int HEIGHT = 22;  ///< logical pixels

    /// Without `selected`, "Selected Only" cannot be chosen. Its accessible name is that of `nameOf`.
    PresetCtl(OrvGuiIF& owner, const Backend::PresetSection& presetSection, QWidget* parent, Selection selected = {});
    ~PresetCtl() override;

    /// The rows of a section in a window.
    static std::vector<PresetCtl*> findAll(const QWidget& window, const Backend::PresetSection& section);

    // Changes that the backend reports
    /// `done` is false if the last change could not be made; the dialog of the presets says so.
    void setPresets(const Backend::PresetList& presets, bool done);
    /// The preset that the section was loaded from or saved as; empty for none.
    void showCurrent(const std::string& name);
    void showEdited(bool on);

    void addPreset(const std::string& name, bool selectedOnly) override;
    void renamePreset(const std::string& oldName, const std::string& newName) override;
    void deletePreset(const std::string& name) override;
    const Backend::PresetList& getPresetList() const override { return list; }
    std::string fileOf(const std::string& name) const override;
    bool hasSelection() const override { return selection && !selection().empty(); }

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void showMenu();
    void showDialog();
    void listChanged();

    OrvGuiIF& gui;
    const GdiManager& gdi;
    const Backend::PresetSection section;
    const PresetCommands commands;
    const Selection selection;
    Backend::PresetList list;
    std::string current;
    bool isEdited = false;
    QString failure;     // of the last command, if it fails
    std::string saving;  // the preset that the backend writes; empty for none
    ComboBox* choices;   // owned by their Qt parents
    QPushButton* button;
    PopupMenu* menu;
    QPointer<PresetsDialog> dialog;
};
}  // namespace Gui::Preset
