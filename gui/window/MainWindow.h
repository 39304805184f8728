#pragma once

#include <QWidget>
#include <functional>
#include <memory>

#include "backend/model/Screen.h"
#include "backend/model/ScreenState.h"

class QPushButton;

namespace Gui
{
class FocusControl;
class KeyInput;
class KeyPresses;
class OrvGuiIF;
class Panel;

namespace ComputerInput
{
class ComputerInputPanel;
}
namespace Display
{
class DisplayPanel;
}
namespace Help
{
class HelpPanel;
}
namespace Output
{
class OutputPanel;
}
namespace System
{
class SystemPanel;
}

/// The window itself: the screens in one column, three buttons while none of them shows, and the control that holds the
/// focus while the keyboard plays. It takes the size that its screens need.
class MainWindow final : public QWidget
{
public:
    using Resized = std::function<void(QSize before, QSize now)>;

    /// In `parent`, or by itself.
    MainWindow(OrvGuiIF& owner, QWidget* parent, Resized tellSize);
    ~MainWindow() override;

    /// Nothing for a screen that is not there.
    void showScreen(Backend::Screen screen, bool on);
    void toggleScreen(Backend::Screen screen);
    bool isShowing(Backend::Screen screen) const;

    Backend::ScreenState getScreenState() const;
    void setScreenState(const Backend::ScreenState& state);

    /// Back to playing, unless a text is being edited.
    void setPlayingFocus();

    /// Whether that is a part of it, or of a dialog of it.
    bool contains(const QWidget& widget) const;
    bool hasDialog() const;

    void setMidiThru(bool on);
    void setGlobalKeyboard(bool on);

    System::SystemPanel& getSystemPanel() { return *systemPanel; }
    Help::HelpPanel& getHelpPanel() { return *helpPanel; }
    Display::DisplayPanel& getDisplayPanel() { return *displayPanel; }
    ComputerInput::ComputerInputPanel& getComputerInputPanel() { return *computerInputPanel; }
    Output::OutputPanel& getOutputPanel() { return *outputPanel; }
    FocusControl& getFocusControl() { return *focusControl; }
    KeyPresses& getKeyPresses() { return *keyPresses; }

protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    class Column;
    class PlayedKeys;

    void makeButtons();
    void makePanels();
    void fit();
    void showHelpOf(const QWidget& control);
    bool playInDialog(QWidget& widget, QEvent& event);
    void dialogClosed();
    Panel* panelOf(Backend::Screen screen) const;

    OrvGuiIF& gui;
    const Resized tellSize;
    std::unique_ptr<PlayedKeys> playedKeys;
    std::unique_ptr<KeyPresses> keyPresses;
    std::unique_ptr<KeyInput> keyInput;
    FocusControl* focusControl;  // these belong to their parents, as Qt has it
    QPushButton* resetButton = nullptr;
    QPushButton* thruButton = nullptr;
    QPushButton* keyboardButton = nullptr;
    Column* column = nullptr;
    System::SystemPanel* systemPanel = nullptr;
    Help::HelpPanel* helpPanel = nullptr;
    Display::DisplayPanel* displayPanel = nullptr;
    ComputerInput::ComputerInputPanel* computerInputPanel = nullptr;
    Output::OutputPanel* outputPanel = nullptr;
    QSize lastSize;
    Backend::ScreenState absentScreens;  // kept for those that are not there
};
}  // namespace Gui
