#pragma once

#include <QWidget>
#include <vector>

#include "gui/presets/PresetCtl.h"

class QPushButton;

namespace Gui::Preset
{
/// The upper row of a section's screen: its preset, and the buttons that add, delete, edit and learn records. The GUI
/// thread.
class SectionRow final : public QWidget
{
public:
    static constexpr QSize SIZE{720, PresetCtl::HEIGHT};  ///< logical pixels
    static constexpr QPoint PLACE{8, 4};                  ///< on the screen, logical pixels

    /// `selected` as for `PresetCtl`.
    SectionRow(OrvGuiIF& owner, const Backend::PresetSection& section, QWidget* parent,
               PresetCtl::Selection selected = {});

    /// At the end of the row; the row owns it.
    QPushButton& addButton(const QString& text, const QString& accessibleName, const QString& help);
    /// The same for a button that has its texts.
    void addButton(QPushButton& button);

    PresetCtl& getPresets() { return *presets; }

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void layOut();

    const GdiManager& gdi;
    QWidget* label;  // owned by their Qt parent
    PresetCtl* presets;
    std::vector<QPushButton*> buttons;
};
}  // namespace Gui::Preset
