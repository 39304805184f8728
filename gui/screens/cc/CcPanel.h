#pragma once

#include <QTimer>
#include <vector>

#include "backend/model/MidiPort.h"
#include "backend/values/OrvMidiMessage.h"
#include "gui/framework/Panel.h"
#include "gui/screens/cc/SentValues.h"

class QPushButton;

namespace Backend
{
class RegistrySettings;
}

namespace Gui
{
class ComboBox;
class OrvGuiIF;
}  // namespace Gui

namespace Gui::Cc
{
class CcRow;

/// The controllers and the program of an output and a channel. What is moved is sent there at once, past the layers; it
/// is playing, and no edit. What others send there is shown. The rows, the output and the channel are settings.
class CcPanel final : public Panel
{
public:
    /// The values that outputs were sent must outlive it.
    CcPanel(OrvGuiIF& owner, SentValues& sentValues, Panel* around);

    /// One of these values was sent.
    void handleSent();

    // Changes that the backend reports
    void handleSettingsChanged(const Backend::RegistrySettings& settings);
    void handleMidiOutputPortsChanged(const Backend::MidiEngine::MidiOutputPorts& ports);
    void handleDefaultMidiOutputChanged();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void makeTopRow();
    ComboBox* makeChoices(const QRect& rectangle, const QString& name, const QString& help);
    QPushButton* makeButton(const QRect& rectangle, const QString& text, const QString& name, const QString& help);
    void showRows(const std::vector<int>& controllers);
    void postRows();
    void addRow();

    SentValues::Place getPlace() const;
    void showValues();
    void sendController(int controller, int value);
    void sendProgram();
    void send(const Backend::MidiEngine::OrvMidiMessage::Fields& event);

    OrvGuiIF& gui;
    ComboBox* output = nullptr;
    ComboBox* channel = nullptr;
    ComboBox* program = nullptr;
    ComboBox* bankMsb = nullptr;
    ComboBox* bankLsb = nullptr;
    std::vector<CcRow*> rows;
    SentValues& sent;
    bool isStale = false;  // values were sent that are not shown
    QTimer nextShow;
};
}  // namespace Gui::Cc
