#include "gui/window/MainWindow.h"

#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <algorithm>
#include <chrono>

#include "api/OrvMessageManager.h"
#include "backend/files/RegistrySettings.h"
#include "gui/OrvGuiIF.h"
#include "gui/framework/Panel.h"
#include "gui/framework/Properties.h"
#include "gui/framework/TextFocus.h"
#include "gui/keyboard/FocusControl.h"
#include "gui/keyboard/GlobalKeyboard.h"
#include "gui/keyboard/KeyInput.h"
#include "gui/keyboard/KeyPresses.h"
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

constexpr auto FOCUS_RETURNS = std::chrono::seconds(1);  // the longest that a desktop takes to give it back

OnOffToggle onOrOff(bool on) { return {on ? OnOffToggle::State::on : OnOffToggle::State::off}; }

/// Whether it is a dialog in which nothing can be typed.
bool isPlayedIn(const QWidget* dialog)
{
    if (qobject_cast<const QDialog*>(dialog) == nullptr) return false;
    const auto lines = dialog->findChildren<QLineEdit*>();
    return std::ranges::none_of(lines, [](const QLineEdit* line) { return !line->isReadOnly(); });
}

/// The keys that move about in a dialog and answer it.
bool belongsToDialog(const QKeyEvent& key)
{
    constexpr int KEYS[] = {Qt::Key_Tab,   Qt::Key_Backtab, Qt::Key_Return, Qt::Key_Enter,   Qt::Key_Escape,
                            Qt::Key_Space, Qt::Key_Left,    Qt::Key_Right,  Qt::Key_Up,      Qt::Key_Down,
                            Qt::Key_Home,  Qt::Key_End,     Qt::Key_PageUp, Qt::Key_PageDown};
    return std::ranges::find(KEYS, key.key()) != std::end(KEYS);
}

/// A control that takes the focus at a click would end the notes that are held.
void leaveKeyboardAlone(QWidget& control)
{
    if ((control.focusPolicy() & Qt::ClickFocus) != 0 && !takesText(&control) &&
        dynamic_cast<FocusControl*>(&control) == nullptr)
        control.setFocusPolicy(Qt::TabFocus);
}
}  // namespace

/// The screens, one below the other.
class MainWindow::Column final : public Panel
{
public:
    Column(QWidget* parent, std::function<void()> tellSize) : resized(std::move(tellSize))
    {
        setParent(parent);
        move(COLUMN_PLACE);
    }

private:
    void resizeEvent(QResizeEvent*) override { resized(); }

    const std::function<void()> resized;
};

/// What comes of keys: the backend plays them, and the picture shows them.
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

MainWindow::MainWindow(OrvGuiIF& owner, QWidget* parent, Resized tellSizeChange)
    : QWidget(parent),
      gui(owner),
      tellSize(std::move(tellSizeChange)),
      playedKeys(std::make_unique<PlayedKeys>(*this)),
      keyPresses(std::make_unique<KeyPresses>(*playedKeys)),
      keyInput(std::make_unique<KeyInput>(*keyPresses)),
      focusControl(new FocusControl(*keyInput, this)),
      column(new Column(this, [this] { fit(); }))
{
    setWindowTitle(QStringLiteral("OrvGui"));
    setAutoFillBackground(true);
    makeButtons();
    makePanels();
    column->show(true);
    fit();
    qApp->installEventFilter(this);
}

MainWindow::~MainWindow()
{
    hide();  // while all are there that its screens turn to
    qApp->removeEventFilter(this);
    for (const auto road : {KeyPresses::Source::window, KeyPresses::Source::hook, KeyPresses::Source::picture})
        keyPresses->releaseAll(road);
}

void MainWindow::makeButtons()
{
    auto& commands = gui.getOrvMessageManager();
    const auto make = [this](const QString& label, int left, const QString& name, const QString& help) {
        auto* button = new QPushButton(label, this);
        button->setGeometry({{left, BUTTON_TOP}, BUTTON});
        button->setAccessibleName(name);
        Property::setHelp(*button, help);
        return button;
    };
    resetButton = make(QStringLiteral("R"), 5, tr("Reset"), tr("Reset (panic): ends every note."));
    thruButton = make(QStringLiteral("T"), 37, tr("MIDI thru"), tr("MIDI Thru: passes on what comes in."));
    keyboardButton = make(QStringLiteral("K"), 69, tr("Global keyboard"), {});
    for (auto* latch : {thruButton, keyboardButton}) latch->setCheckable(true);
    connect(resetButton, &QPushButton::clicked, [&commands] { commands.postResetOrv(); });
    connect(thruButton, &QPushButton::clicked,
            [&commands](bool on) { commands.postChangeMidiThru(onOrOff(on), true); });
    connect(keyboardButton, &QPushButton::clicked,
            [&commands](bool on) { commands.postChangeGlobalKeyboard(onOrOff(on), true); });
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
    panel->show(on);
    fit();  // a column that was out of sight does not tell that it grew
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
    auto bits = absentScreens.toBits();
    for (const Screen screen : SCREENS)
        if (panelOf(screen) != nullptr) bits[static_cast<std::size_t>(screen)] = isShowing(screen);
    return ScreenState::fromBits(bits);
}

void MainWindow::setScreenState(const ScreenState& state)
{
    absentScreens = state;
    const auto bits = state.toBits();
    for (const Screen screen : SCREENS) showScreen(screen, bits[static_cast<std::size_t>(screen)]);
    fit();
}

/// As large as the screens together, or as the three buttons where there are none.
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
    tellSize(before, needed);
}

void MainWindow::setMidiThru(bool on) { thruButton->setChecked(on); }

void MainWindow::setGlobalKeyboard(bool on)
{
    keyboardButton->setChecked(on);
    Property::setHelp(*keyboardButton, QString::fromStdString(GlobalKeyboard::describe(gui.getGlobalKeyboardReason())));
}

// --- the focus and the keys

void MainWindow::setPlayingFocus()
{
    if (!takesText(QApplication::focusWidget())) focusControl->setFocus();
}

/// Its help, or that of what it is a part of.
void MainWindow::showHelpOf(const QWidget& control)
{
    for (const QWidget* widget = &control; widget != nullptr; widget = widget->parentWidget())
        if (widget->property(Property::HELP).isValid()) return gui.displayHelp(*widget);
}

/// A click beside a text ends its editing; pointing at a control, or going there by keys, shows its help; the keys that
/// play follow the focus.
bool MainWindow::eventFilter(QObject* object, QEvent* event)
{
    auto* widget = qobject_cast<QWidget*>(object);
    if (widget == nullptr) return false;
    if (widget->window() != window()) return contains(*widget) && playInDialog(*widget, *event);
    switch (event->type()) {
        case QEvent::MouseButtonPress:
            if (!takesText(widget)) focusControl->setFocus();
            break;
        case QEvent::Enter:
            showHelpOf(*widget);
            break;
        case QEvent::Show:
            if (isAncestorOf(widget)) leaveKeyboardAlone(*widget);
            break;
        case QEvent::FocusIn:
            showHelpOf(*widget);
            if (isAncestorOf(widget) && !takesText(widget)) keyInput->focusGained();
            break;
        case QEvent::FocusOut:
        case QEvent::WindowDeactivate:
            if (!isPlayedIn(QApplication::activeModalWidget())) keyInput->focusLost();
            break;
        default:
            break;
    }
    return false;
}

/// In a dialog in which nothing can be typed the keys play, but for those that move about in it and answer it.
bool MainWindow::playInDialog(QWidget& widget, QEvent& event)
{
    switch (event.type()) {
        case QEvent::Enter:
            showHelpOf(widget);
            return false;
        case QEvent::FocusIn:
            showHelpOf(widget);
            return false;
        case QEvent::WindowDeactivate:
            widget.window()->isHidden() ? dialogClosed() : keyInput->focusLost();
            return false;
        case QEvent::KeyPress: {
            const auto& key = static_cast<const QKeyEvent&>(event);
            if (!isPlayedIn(widget.window()) || belongsToDialog(key)) return false;
            keyInput->press(key);
            return true;
        }
        case QEvent::KeyRelease:
            keyInput->release(static_cast<const QKeyEvent&>(event));
            return false;
        default:
            return false;
    }
}

/// The window, or a dialog below, has the keys a moment later, unless another program has taken them.
void MainWindow::dialogClosed()
{
    QTimer::singleShot(FOCUS_RETURNS, this, [this] {
        if (!isActiveWindow() && !isPlayedIn(QApplication::activeModalWidget())) keyInput->focusLost();
    });
}

bool MainWindow::contains(const QWidget& widget) const
{
    const QWidget* inner = &widget;
    while (inner != nullptr && inner != this) inner = inner->parentWidget();
    return inner == this;
}

bool MainWindow::hasDialog() const
{
    const auto dialogs = findChildren<QDialog*>();
    return std::ranges::any_of(dialogs, [](const QDialog* dialog) { return dialog->isVisible(); });
}

/// Of a control that has the focus, these are the keys that it has no use for.
void MainWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        focusControl->setFocus();
    else if (!takesText(QApplication::focusWidget()))
        keyInput->press(*event);
}

void MainWindow::keyReleaseEvent(QKeyEvent* event) { keyInput->release(*event); }

void MainWindow::hideEvent(QHideEvent* event)
{
    keyInput->focusLost();
    QWidget::hideEvent(event);
}
}  // namespace Gui
