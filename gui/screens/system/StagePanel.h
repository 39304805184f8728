#pragma once

#include <QPointer>
#include <QString>
#include <cstdint>
#include <optional>
#include <string>

#include "api/HostStatus.h"
#include "backend/model/MidiPort.h"
#include "backend/model/SetList.h"
#include "backend/values/RelativeFixedValue.h"
#include "backend/values/SelectType.h"
#include "gui/framework/KeyTarget.h"
#include "gui/framework/Panel.h"

class QPushButton;

namespace Backend
{
class OrvMessageManager;
struct Bank;
struct BankEditDone;
struct EditDone;
struct Program;
}  // namespace Backend

namespace Gui
{
class ActivityLights;
class OrvGuiIF;
class PopupMenu;
}  // namespace Gui

namespace Gui::System
{
class BeatLight;
class KeyBadge;
class ProgramButton;
class RecordGauge;
class SetListDialog;
class StatusText;
class TempoEdit;

/// The two upper rows of the system screen, which never scroll away. The first one has what is needed on a stage:
/// program, tempo and RESET. The second one, the status line, says where the keys go, whether sound goes out, what is
/// wrong and what was done.
class StagePanel final : public Panel
{
public:
    StagePanel(OrvGuiIF& owner, const GdiManager& manager, QWidget* parent);

    // Changes that the backend and the host report
    void handleBankChanged(const Backend::Bank& bank);
    void handleProgramChanged(const Backend::Program& program);
    void handleMidiInputPortsChanged(const Backend::MidiEngine::MidiInputPorts& ports);
    /// The output ports or the default output.
    void handleOutputChanged();
    void handleRetroRecordEnabledChanged(bool on);
    void handleRetroRecordFillChanged(int percent);
    void handleHostStatus(const HostStatus& status);
    void displayMidiOutputEvent();
    void handleEditDone(const Backend::EditDone& done);
    void handleBankEditDone(const Backend::BankEditDone& done);
    /// `otherEdited` counts programs.
    void handleProgramEdited(bool isEdited, int otherEdited);
    void handleSetListChanged(const Backend::SetList& list);

    /// Whether the status line offers to discard what was restored after a crash. Two edits end the offer.
    void offerDiscard(bool on);

    void showKeyTarget(KeyTarget target);
    /// What was done, for three seconds.
    void showMessage(const QString& text);

    /// Opens below the name, or at the pointer while the panel is hidden, and returns at once.
    void showProgramList();
    /// Opens the dialog of the set list and returns at once. Ignored without a bank.
    void showSetList();

private:
    void addProgram();
    void addTempo();
    void addReset();
    void addStatusLine();
    template <class Control>
    Control* add(Control* control, const QRect& rectangle, const QString& name, const QString& help);

    Backend::OrvMessageManager& commands() const;
    void showProgram();
    QString describeNext() const;
    void showProgramMenu(const QPoint& globalPosition);
    void rename();
    void editProgram(const char* field, const std::string& value, const QString& name, std::uint32_t gesture);
    void changeProgram(const SelectType& select);
    void changeTempo(const RelativeFixedValue& change);
    void showTempo();
    void showStatus();
    void showUndone(const std::string& name);
    void showRedone(const std::string& name);
    QString findTrouble() const;
    void leave();

    OrvGuiIF& gui;
    HostStatus host;
    ProgramButton* program = nullptr;  // owned by the panel
    BeatLight* beat = nullptr;
    TempoEdit* tempo = nullptr;
    KeyBadge* badge = nullptr;
    StatusText* status = nullptr;
    ActivityLights* inputs = nullptr;
    ActivityLights* output = nullptr;
    RecordGauge* record = nullptr;
    QPushButton* discard = nullptr;
    int editsOfOffer = 0;  // since it was made
    PopupMenu* menu;
    Backend::SetList setList;
    QPointer<SetListDialog> setListDialog;  // while it is open
    bool isEdited = false;                  // the program
    bool isBankEdited = false;              // any of its programs
    std::optional<int> wantedTempo;         // while its edit is not acknowledged
};
}  // namespace Gui::System
