#pragma once

#include <QTimer>
#include <functional>
#include <map>

#include "backend/model/OscList.h"
#include "gui/forms/RecordEditor.h"
#include "gui/framework/Panel.h"
#include "gui/screens/oscillators/OscCtl.h"
#include "gui/screens/oscillators/OscGuiMessageManager.h"
#include "gui/screens/oscillators/OscRecords.h"

class QPushButton;

namespace Gui
{
class OrvGuiIF;

namespace Forms
{
class RecordForm;
}
}  // namespace Gui

namespace Gui::Oscillators
{
/// The screen of the oscillators; beneath them the settings of those that are selected. It shows its own copy of them.
/// What is selected here is what functions change. Starting, stopping and turning the knob is playing; all else is an
/// edit of the program.
class OscPanel final : public Panel, private OscCtl::Listener
{
public:
    using Id = OscRecords::Id;

    OscPanel(OrvGuiIF& owner, Panel* around);

    // Changes that the backend reports
    void handleOscillators(const Backend::Oscillators::OscList& list);
    void handleOscSelected(Id id, bool selected);
    void handleOscPlaying(Id id, bool playing);
    void handleOscSpeed(Id id, std::int32_t speed);
    void handleOscSpeedMode(Id id, TimeIntervalType::Kind mode);
    /// Shown 30 times a second at most, and only while the screen is.
    void handleOscValue(Id id, std::int32_t value);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    void scaleChanged() override;

private:
    using Oscillator = Backend::Oscillators::Oscillator;

    void setPlaying(Id id, bool on) override;
    void turnSpeed(Id id, int speed) override;
    void setSpeed(Id id, int speed) override;
    void setSpeedMode(Id id, TimeIntervalType mode) override;
    void addOscillator() override;

    void makeTopRow();
    void fit();
    void selectionChanged();
    void take(const std::vector<Oscillator>& all);
    void change(Id id, std::function<void(Oscillator& oscillator)> set);
    void showValues();

    OrvGuiIF& gui;
    Forms::FieldLists lists;
    OscRecords records{lists};
    Forms::RecordEditor editor;
    OscGuiMessageManager messages;
    OscCtl* list;  // these are owned by Qt
    Forms::RecordForm* form;
    QPushButton* settingsButton = nullptr;

    bool selectedDuringEdit = false;  // the next list that is reported has the selection of before
    QTimer nextShow;
    std::map<Id, int> awaited;  // speeds that the user has set and the backend has not yet reported
};
}  // namespace Gui::Oscillators
