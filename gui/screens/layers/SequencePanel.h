#pragma once

#include <QTimer>
#include <QWidget>
#include <cstdint>
#include <string>
#include <vector>

#include "backend/model/Edit.h"
#include "backend/model/PresetList.h"
#include "gui/presets/PresetGuiOwner.h"

class QLabel;
class QPushButton;
class QScrollArea;

namespace Gui
{
class OrvGuiIF;
class PopupMenu;

namespace Forms
{
class LayerRecords;
class RecordEditor;
}  // namespace Forms
}  // namespace Gui

namespace Gui::Layers
{
class SequenceGrid;

/// The sequence of the selected layers as steps, while their settings are open and one of them has an arpeggio: it
/// shows that of the current layer, and sets it for all. The step that plays is lit. Its button saves the sequence as a
/// preset, and renames and deletes presets. The GUI thread.
class SequencePanel final : public QWidget, private Preset::PresetGuiOwner
{
public:
    /// All must outlive it.
    SequencePanel(OrvGuiIF& owner, Forms::LayerRecords& shownLayers, Forms::RecordEditor& recordEditor,
                  QWidget* parent = nullptr);

    /// Whether there is something to show.
    bool isWanted() const;
    /// Shows the records as they are now.
    void follow();
    void rescale();
    /// In logical pixels.
    static int getLogicalHeight();

    // Changes that the backend reports
    /// The step that each layer plays, -1 for none.
    void handleSteps(const std::vector<int>& steps);
    void handlePresets();

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    Backend::RecordId shownLayer() const;
    QPushButton* addButton(const QString& text, const QString& name, const QString& help);
    void showMenu();

    void addPreset(const std::string& name, bool selectedOnly) override;
    void renamePreset(const std::string& oldName, const std::string& newName) override;
    void deletePreset(const std::string& name) override;
    const Backend::PresetList& getPresetList() const override { return presets; }
    std::string fileOf(const std::string& name) const override { return "Sequences/" + name + ".seq"; }
    bool hasSelection() const override { return false; }

    OrvGuiIF& gui;
    Forms::LayerRecords& layers;
    Forms::RecordEditor& editor;
    Backend::PresetList presets;
    QTimer pull;  // asks which steps play
    std::uint32_t gesture = 0;
    std::vector<QPushButton*> buttons;
    QLabel* title;
    QScrollArea* view;
    SequenceGrid* grid;
    PopupMenu* menu;
};
}  // namespace Gui::Layers
