#pragma once

#include <QWidget>
#include <array>
#include <functional>

#include "backend/values/Key.h"

class QCheckBox;
class QHBoxLayout;
class QLabel;

namespace Gui
{
class OrvGuiIF;

namespace Forms
{
class RecordEditor;
}
}  // namespace Gui

namespace Gui::ComputerInput
{
class KeyRecords;

/// What the selected keys do, beneath the board, and the modifiers under which the board shows its keys. The GUI
/// thread.
class KeySettings final : public QWidget
{
public:
    static constexpr int HEIGHT = 276;  ///< logical pixels

    /// All must outlive it.
    KeySettings(OrvGuiIF& owner, Forms::RecordEditor& shownEditor, KeyRecords& shownRecords, QWidget* parent);

    /// The user chose the modifiers.
    std::function<void(const Key& modifiers)> onModifiers;

    void showModifiers();

private:
    void makeFirstRow(QHBoxLayout& line);
    void showSelected();

    Forms::RecordEditor& editor;
    KeyRecords& records;
    QLabel* title = nullptr;  // these are owned by their Qt parents
    std::array<QCheckBox*, 4> modifiers{};
};
}  // namespace Gui::ComputerInput
