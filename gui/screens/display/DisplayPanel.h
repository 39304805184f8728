#pragma once

#include <QStringList>
#include <QTimer>
#include <array>
#include <string>

#include "backend/model/MidiPort.h"
#include "gui/framework/Panel.h"
#include "gui/screens/display/DisplayGuiMessageManager.h"

class QKeyEvent;
class QPushButton;

namespace Backend
{
class RegistrySettings;
}
namespace Backend::Display
{
class DisplayListener;
class DisplayMessageManager;
}  // namespace Backend::Display

namespace Gui
{
class ComboBox;
class OrvGuiIF;
}  // namespace Gui

namespace Gui::Display
{
class HeightEdge;
class LogView;

/// The log of MIDI events that are received and played. While it is visible it fetches new text from the backend's
/// display ten times a second, so its load does not grow with the number of events.
class DisplayPanel final : public Panel
{
public:
    static constexpr int WIDTH = 960;

    DisplayPanel(OrvGuiIF& owner, Panel* around);
    ~DisplayPanel() override;

    void addText(const std::string& text);
    void setText(const std::string& text);

    void handleSettingsChanged(const Backend::RegistrySettings& settings);
    void handleLargeDisplayFontChanged(bool on);
    void handleMidiInputPortsChanged(const Backend::MidiEngine::MidiInputPorts& ports);
    void handleMidiOutputPortsChanged(const Backend::MidiEngine::MidiOutputPorts& ports);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scaleChanged() override;

private:
    static constexpr std::size_t SWITCHES = 5;

    void makeButtons();
    QPushButton* makeButton(const QString& label, const QString& help);
    void makeFilter();
    ComboBox* makeChoices(int width, const QString& name, const QString& help);
    void showPorts();
    void useFilter();
    void makeEdge();
    void playKey(const QKeyEvent& event);
    Backend::Display::DisplayMessageManager& getDisplay() const;

    OrvGuiIF& gui;
    DisplayGuiMessageManager messages;
    Backend::Display::DisplayListener* feed;  // owned by the display once it is returned
    LogView* log;
    HeightEdge* edge;
    std::array<QPushButton*, SWITCHES> switches{};
    int nextLeft = 0;  // of the next control in the row, in logical pixels
    ComboBox* port = nullptr;
    ComboBox* channel = nullptr;
    ComboBox* kind = nullptr;
    QStringList inputs;  // as lines begin with them
    QStringList outputs;
    QTimer pull;
};
}  // namespace Gui::Display
