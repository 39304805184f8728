#pragma once

#include <QDialog>

class QBoxLayout;
class QListWidget;

namespace Gui
{
class ErrorLine;
}

namespace Gui::Preset
{
class PresetGuiOwner;

/// Opens the dialog "Add Preset", which asks for a name and saves, and returns at once. The GUI thread.
void showAddPresetDialog(PresetGuiOwner& owner, QWidget& parent);

/// Saves, renames and deletes the presets of a section. The keys go on playing. The GUI thread.
class PresetsDialog final : public QDialog
{
public:
    PresetsDialog(PresetGuiOwner& presetOwner, QWidget& parent);

    /// The list has changed.
    void refill();
    /// What could not be done, until the next command.
    void showError(const QString& text);

private:
    void addButton(QBoxLayout& column, const QString& label, const QString& help, void (PresetsDialog::*action)());
    QString selectedName() const;
    void addPreset();
    void deletePreset();
    void editPreset();

    PresetGuiOwner& owner;
    QListWidget* names;
    ErrorLine* error;
};
}  // namespace Gui::Preset
