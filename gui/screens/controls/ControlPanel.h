#pragma once

#include <QTimer>
#include <map>
#include <set>

#include "backend/values/SelectControlType.h"
#include "gui/forms/RecordEditor.h"
#include "gui/framework/Panel.h"
#include "gui/screens/controls/ControlEdits.h"
#include "gui/screens/controls/ControlGuiMessageManager.h"
#include "gui/screens/controls/ControlRecords.h"

class QPushButton;

namespace Gui
{
class OrvGuiIF;

namespace Forms
{
class LearnButton;
class RecordForm;
}  // namespace Forms
}  // namespace Gui

namespace Gui::Controls
{
class ControlGrid;

/// The screen of the controls, which are played and arranged; beneath them the settings of those that are selected. It
/// shows its own copy of the controls. What is selected here is what functions change, and moves together.
class ControlPanel final : public Panel
{
public:
    ControlPanel(OrvGuiIF& owner, Panel* around);

    // Changes that the backend reports
    void handleControls(const Backend::Controls::ControlMap& controls);
    /// Shown 30 times a second at most, and only while the screen is.
    void handleControlValue(const Cell& cell, std::int32_t value);
    void handleControlSelected(const Cell& cell, bool selected);
    /// Puts the cursor into an edit.
    void handleSetWidgetFocus(const SelectControlType& select);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    void scaleChanged() override;

private:
    using Id = ControlRecords::Id;

    void makeTopRow();
    void makeSettings();
    void selectionChanged();
    void take();
    void fit();
    void showChanged();
    void setValue(Id id, int value);
    void release(Id id);

    OrvGuiIF& gui;
    Forms::FieldLists lists;
    ControlRecords records{lists};
    Forms::RecordEditor editor;
    ControlEdits edits{editor, records};
    Backend::Controls::ControlMap reported;  // the records follow it when all edits are acknowledged
    ControlGuiMessageManager messages;
    ControlGrid* grid = nullptr;  // these are owned by their Qt parents
    Forms::RecordForm* form = nullptr;
    Forms::LearnButton* learn = nullptr;
    QPushButton* deleteButton = nullptr;
    QPushButton* editButton = nullptr;

    QTimer nextShow;
    std::set<Id> changed;       // values that are not yet shown
    std::map<Id, int> awaited;  // values that the user has set and the backend has not yet reported
};
}  // namespace Gui::Controls
