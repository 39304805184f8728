#pragma once

#include <QWidget>
#include <cstdint>
#include <vector>

#include "backend/model/Edit.h"

namespace Gui
{
class GuiContext;
}

namespace Gui::Forms
{
class RecordEditor;
class SettingsForm;

/// The settings of the selected records beneath their section, as long as the editor says that they are open. What the
/// user changes is posted; typing a value, a drag, and turning the wheel are one step of undo each. The GUI thread.
class RecordForm final : public QWidget
{
public:
    /// The editor must outlive it.
    RecordForm(GuiContext& owner, RecordEditor& shownEditor, QWidget* parent = nullptr, int columns = 1);

private:
    void showSelected();
    std::uint32_t gestureOf(const QString& field);

    RecordEditor& editor;
    SettingsForm* form;
    std::vector<Backend::RecordId> shown;
    std::uint32_t dragGesture = 0;  // of the drag that goes on
};
}  // namespace Gui::Forms
