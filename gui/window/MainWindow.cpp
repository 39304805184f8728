#include "gui/window/MainWindow.h"

#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QKeyEvent>
#include <QPushButton>
#include <algorithm>

#include "api/OrvGuiIF.h"
#include "api/OrvMessageManager.h"
#include "backend/files/RegistrySettings.h"
#include "gui/framework/GuiMessageManagerMaster.h"
#include "gui/framework/Panel.h"
#include "gui/framework/Properties.h"
#include "gui/framework/Switches.h"
#include "gui/framework/WidgetTree.h"
#include "gui/keyboard/GlobalKeyboard.h"
#include "gui/keyboard/WindowKeyboard.h"
#include "gui/screens/computerinput/ComputerInputPanel.h"
#include "gui/screens/computerinput/ComputerKeyboardCtl.h"
#include "gui/screens/display/DisplayPanel.h"
#include "gui/screens/help/HelpPanel.h"
#include "gui/screens/output/OutputPanel.h"
#include "gui/screens/system/SystemPanel.h"

namespace Gui
{
using Backend::Screen;
using Backend::ScreenState;

namespace
{
constexpr QPoint COLUMN_PLACE(4, 5);
constexpr QSize COMPACT(104, 33);
constexpr int BUTTON_TOP = 6;
constexpr QSize BUTTON(29, 20);

constexpr Screen SCREENS[] = {
    Screen::system,        Screen::help,     Screen::display, Screen::oscillators, Screen::joystick, Screen::midiInput,
    Screen::computerInput, Screen::controls, Screen::output,  Screen::layers,      Screen::cc,       Screen::zones};
}  // namespace

/// The screens, one below the other.
class MainWindow::Column final : public Panel
{
public:
    Column(QWidget* parent, std::function<void()> onResize) : resized(std::move(onResize))
    {
        setParent(parent);
        move(COLUMN_PLACE);
    }

private:
    void resizeEvent(QResizeEvent*) override { resized(); }

    const std::function<void()> resized;
};

/// Posts keys to the backend, which plays them, and shows them on the picture of the keyboard.
class MainWindow::PlayedKeys final : public KeyPresses::Listener
{
public:
    explicit PlayedKeys(MainWindow& mainWindow) : window(mainWindow), commands(mainWindow.gui.getOrvMessageManager()) {}

    void keyDown(const Key& key, bool isRepeat) override { commands.postKeyDown(key, isRepeat); }
    void keyUp(const Key& key) override { commands.postKeyUp(key); }
    void showKey(int code, bool down) override
    {
        auto& picture = window.computerInputPanel->getKeyboard();
        down ? picture.showKeyDown(code) : picture.showKeyUp(code);
    }

private:
    MainWindow& window;
    Backend::OrvMessageManager& commands;
};

MainWindow::MainWindow(OrvGuiIF& owner, QWidget* parent, Resized onResize)
    : QWidget(parent),
      gui(owner),
      resized(std::move(onResize)),
      playedKeys(std::make_unique<PlayedKeys>(*this)),
      keyboard(std::make_unique<WindowKeyboard>(*this, *playedKeys)),
      column(new Column(this, [this] { fit(); }))
{
    setWindowTitle(QStringLiteral("OrvGui"));
    setAutoFillBackground(true);
    makeButtons();
    makePanels();
    column->show(true);
    fit();
    qApp->installEventFilter(this);
    gui.getGuiMessageManagerMaster().addMessageManager(&zoneMessages);
}

MainWindow::~MainWindow()
{
    hide();  // while the objects that its screens use exist
    qApp->removeEventFilter(this);
    keyboard->releaseAll();
}

void MainWindow::makeButtons()
{
    auto& commands = gui.getOrvMessageManager();
    const auto make = [this](const QString& label, int left) {
        auto* button = new QPushButton(label, this);
        button->setGeometry({{left, BUTTON_TOP}, BUTTON});
        return button;
    };
    resetButton = make(QStringLiteral("R"), 5);
    resetButton->setAccessibleName(tr("Reset"));
    Property::setHelp(*resetButton, tr("Reset (panic): ends every note on all channels of all outputs."));
    connect(resetButton, &QPushButton::pressed, [&commands] { commands.postResetOrv(); });
    thruButton = make(QStringLiteral("T"), 37);
    makeSwitch(*thruButton, Switches::MIDI_THRU, commands);
    keyboardButton = make(QStringLiteral("K"), 69);
    makeSwitch(*keyboardButton, Switches::GLOBAL_KEYBOARD, commands);
}

void MainWindow::makePanels()
{
    systemPanel = new System::SystemPanel(gui, column);
    helpPanel = new Help::HelpPanel(gui, column);
    displayPanel = new Display::DisplayPanel(gui, column);
    computerInputPanel = new ComputerInput::ComputerInputPanel(gui, column);
    outputPanel = new Output::OutputPanel(gui, column);
    for (const Screen screen : SCREENS)
        if (screen != Screen::system && panelOf(screen) != nullptr) systemPanel->offerScreen(screen);
}

Panel* MainWindow::panelOf(Screen screen) const
{
    switch (screen) {
        case Screen::system:
            return systemPanel;
        case Screen::help:
            return helpPanel;
        case Screen::display:
            return displayPanel;
        case Screen::computerInput:
            return computerInputPanel;
        case Screen::output:
            return outputPanel;
        default:
            return nullptr;
    }
}

void MainWindow::showScreen(Screen screen, bool on)
{
    Panel* panel = panelOf(screen);
    if (panel == nullptr) return;
    if (!on) keyboard->takeFocusFrom(*panel);
    panel->show(on);
    fit();  // a hidden column gets no resize event
    systemPanel->screenShown(screen, on);
}

void MainWindow::toggleScreen(Screen screen) { showScreen(screen, !isShowing(screen)); }

bool MainWindow::isShowing(Screen screen) const
{
    const Panel* panel = panelOf(screen);
    return panel != nullptr && panel->isShown();
}

ScreenState MainWindow::getScreenState() const
{
    auto bits = storedState.toBits();
    for (const Screen screen : SCREENS)
        if (panelOf(screen) != nullptr) bits[static_cast<std::size_t>(screen)] = isShowing(screen);
    return ScreenState::fromBits(bits);
}

void MainWindow::setScreenState(const ScreenState& state)
{
    storedState = state;
    const auto bits = state.toBits();
    for (const Screen screen : SCREENS) showScreen(screen, bits[static_cast<std::size_t>(screen)]);
    fit();
}

/// Takes the size of the screens that are shown, or of the three buttons where there are none.
void MainWindow::fit()
{
    const bool compact = !column->hasShownChild();
    for (auto* button : {resetButton, thruButton, keyboardButton}) button->setVisible(compact);
    column->setVisible(!compact);
    if (compact) {
        setMidiThru(gui.getRegistrySettings().getMidiThru());
        setGlobalKeyboard(gui.getRegistrySettings().getGlobalKeyboard());
    }
    const QSize needed = compact ? COMPACT : column->size() + QSize(2 * COLUMN_PLACE.x(), 2 * COLUMN_PLACE.y());
    if (needed == lastSize) return;
    const QSize before = lastSize;
    lastSize = needed;
    setFixedSize(needed);
    resized(before, needed);
}

void MainWindow::setMidiThru(bool on) { thruButton->setChecked(on); }

void MainWindow::setGlobalKeyboard(bool on)
{
    keyboardButton->setChecked(on);
    Property::setHelp(*keyboardButton, QString::fromStdString(GlobalKeyboard::describe(gui.getGlobalKeyboardReason())));
}

void MainWindow::handleZones(const Backend::Zones::ZoneMap& zones) { computerInputPanel->handleZones(zones); }

void MainWindow::handleZoneTranspose(Backend::Zones::ZoneId zone, int transpose)
{
    computerInputPanel->handleZoneTranspose(zone, transpose);
}

// --- help, focus and keys

/// The help of the control, or of the nearest control around it that has one.
void MainWindow::showHelpOf(const QWidget& control)
{
    for (const QWidget* widget = &control; widget != nullptr; widget = widget->parentWidget())
        if (widget->property(Property::HELP).isValid()) return gui.displayHelp(*widget);
}

/// Pointing at a control of the window or of its dialogs, or going there by keys, shows its help.
bool MainWindow::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() != QEvent::Enter && event->type() != QEvent::FocusIn) return false;
    const auto* widget = qobject_cast<QWidget*>(object);
    if (widget != nullptr && (widget->window() == window() || isWithin(*widget, *this))) showHelpOf(*widget);
    return false;
}

bool MainWindow::hasDialog() const
{
    const auto dialogs = findChildren<QDialog*>();
    return std::ranges::any_of(dialogs, [](const QDialog* dialog) { return dialog->isVisible(); });
}

KeyPresses& MainWindow::getKeyPresses() { return keyboard->getKeyPresses(); }

void MainWindow::setPlayingFocus() { keyboard->takeFocus(); }

/// Keys that the focused control did not use.
void MainWindow::keyPressEvent(QKeyEvent* event) { keyboard->keyPressed(*event); }

void MainWindow::keyReleaseEvent(QKeyEvent* event) { keyboard->keyReleased(*event); }

void MainWindow::hideEvent(QHideEvent* event)
{
    keyboard->releaseTyped();
    QWidget::hideEvent(event);
}
}  // namespace Gui
