#pragma once

#include <QDialog>

class QBoxLayout;
class QListWidget;

namespace Gui::Preset
{
class PresetGuiOwner;

/// Opens the dialog "Add Preset", which saves under a name, and returns at once. The GUI thread.
void showAddPresetDialog(PresetGuiOwner& owner, QWidget& parent);

/// The presets of a section: saved, renamed and deleted here. The keys play on meanwhile. The GUI thread.
class PresetsDialog final : public QDialog
{
public:
    PresetsDialog(PresetGuiOwner& presetOwner, QWidget& parent);

    /// The list is another one.
    void refill();

private:
    void addButton(QBoxLayout& column, const QString& label, const QString& help, void (PresetsDialog::*action)());
    QString selectedName() const;
    void addPreset();
    void deletePreset();
    void editPreset();

    PresetGuiOwner& owner;
    QListWidget* names;
};
}  // namespace Gui::Preset
