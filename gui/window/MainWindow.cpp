#include "gui/window/MainWindow.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QDialog>
#include <QDir>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QMimeData>
#include <QPushButton>
#include <QScrollArea>
#include <QUrl>
#include <algorithm>

#include "api/OrvGuiIF.h"
#include "api/OrvMessageManager.h"
#include "backend/files/RegistrySettings.h"
#include "gui/forms/EditableSections.h"
#include "gui/framework/DialogFrame.h"
#include "gui/framework/EditPoster.h"
#include "gui/framework/GuiMessageManagerMaster.h"
#include "gui/framework/Panel.h"
#include "gui/framework/PopupMenu.h"
#include "gui/framework/Properties.h"
#include "gui/framework/Switches.h"
#include "gui/framework/WidgetTree.h"
#include "gui/keyboard/GlobalKeyboard.h"
#include "gui/keyboard/KeyReading.h"
#include "gui/keyboard/WindowKeyboard.h"
#include "gui/screens/cc/CcPanel.h"
#include "gui/screens/computerinput/ComputerInputPanel.h"
#include "gui/screens/computerinput/ComputerKeyboardCtl.h"
#include "gui/screens/controls/ControlPanel.h"
#include "gui/screens/display/DisplayPanel.h"
#include "gui/screens/help/HelpPanel.h"
#include "gui/screens/joystick/JoystickPanel.h"
#include "gui/screens/layers/LayerPanel.h"
#include "gui/screens/layers/MainPanel.h"
#include "gui/screens/midiinput/MidiInputPanel.h"
#include "gui/screens/oscillators/OscPanel.h"
#include "gui/screens/output/OutputPanel.h"
#include "gui/screens/system/ScreenButtons.h"
#include "gui/screens/system/StagePanel.h"
#include "gui/screens/system/SystemPanel.h"
#include "gui/screens/zones/ZonePanel.h"

namespace Gui
{
using Backend::Screen;
using Backend::ScreenState;

namespace
{
constexpr int MARGIN = 4;  // logical pixels, as all of these
constexpr int GAP = 8;
constexpr QSize COMPACT(104, 33);
constexpr int BUTTON_TOP = 6;
constexpr QSize BUTTON(29, 20);
constexpr const char* PLACE = "PLACE";

/// As menus have them.
constexpr Screen SCREENS[] = {
    Screen::system,        Screen::help,     Screen::display, Screen::oscillators, Screen::joystick, Screen::midiInput,
    Screen::computerInput, Screen::controls, Screen::output,  Screen::layers,      Screen::cc,       Screen::zones};

/// As they are shown, one below the other.
constexpr Screen DOWNWARDS[] = {Screen::system,   Screen::help,      Screen::display,       Screen::oscillators,
                                Screen::joystick, Screen::midiInput, Screen::computerInput, Screen::controls,
                                Screen::output,   Screen::zones,     Screen::layers,        Screen::cc};

/// The screens below the music keyboard, inside the output screen.
constexpr bool isInOutput(Screen screen)
{
    return screen == Screen::zones || screen == Screen::layers || screen == Screen::cc;
}
}  // namespace

/// The screens, one below the other.
class MainWindow::Column final : public Panel
{
public:
    Column(const GdiManager& manager, std::function<void()> onResize) : Panel(manager), resized(std::move(onResize)) {}

private:
    void resizeEvent(QResizeEvent*) override { resized(); }

    const std::function<void()> resized;
};

/// The part of the window in which the column scrolls. Keys are left to playing.
class MainWindow::ColumnView final : public QScrollArea
{
public:
    ColumnView(QWidget* parent, QWidget& column) : QScrollArea(parent)
    {
        setFrameShape(QFrame::NoFrame);
        setFocusPolicy(Qt::NoFocus);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        setWidget(&column);
    }

protected:
    void keyPressEvent(QKeyEvent* event) override { event->ignore(); }
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
      column(new Column(owner.getGdiManager(), [this] { fit(); })),
      noteLights(owner.getOrvIF(), [this](const auto& activity) {
          if (zonePanel != nullptr) zonePanel->showNotes(activity);
          if (layerPanel != nullptr) layerPanel->getLayerPanel().showNotes(activity);
      })
{
    setWindowTitle(QStringLiteral("OrvGui"));
    setAutoFillBackground(true);
    setAcceptDrops(true);
    makeButtons();
    makePanels();
    view = new ColumnView(this, *column);
    column->show(true);
    rescale();
    keyboard->onWindowKey = [this](const QKeyEvent& event) { return useWindowKey(event); };
    keyboard->onTarget = [this](KeyTarget target) { showKeyTarget(target); };
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
        button->setProperty(PLACE, QRect({left, BUTTON_TOP}, BUTTON));
        return button;
    };
    resetButton = make(QStringLiteral("R"), 5);
    resetButton->setAccessibleName(tr("Reset"));
    Property::setColour(*resetButton, GdiManager::Role::frame);
    Property::setHelp(*resetButton, tr("Reset (panic): ends every note on all channels of all outputs."));
    connect(resetButton, &QPushButton::pressed, [&commands] { commands.postResetOrv(); });
    thruButton = make(QStringLiteral("T"), 37);
    makeSwitch(*thruButton, Switches::MIDI_THRU, commands);
    keyboardButton = make(QStringLiteral("K"), 69);
    makeSwitch(*keyboardButton, Switches::GLOBAL_KEYBOARD, commands);
}

/// Those that the window needs also while they are hidden.
void MainWindow::makePanels()
{
    stagePanel = new System::StagePanel(gui, gui.getGdiManager(), this);
    systemPanel = new System::SystemPanel(gui, *stagePanel, column);
    for (const Screen screen : SCREENS)
        if (screen != Screen::system) systemPanel->offerScreen(screen);
    helpPanel = new Help::HelpPanel(gui, column);
    computerInputPanel = new ComputerInput::ComputerInputPanel(gui, column);
    outputPanel = new Output::OutputPanel(gui, column);
}

Panel* MainWindow::makePanel(Screen screen)
{
    switch (screen) {
        case Screen::system:
        case Screen::help:
        case Screen::computerInput:
        case Screen::output:
            break;
        case Screen::display:
            return displayPanel = new Display::DisplayPanel(gui, column);
        case Screen::oscillators:
            return oscPanel = new Oscillators::OscPanel(gui, column);
        case Screen::joystick:
            return joystickPanel = new Joystick::JoystickPanel(gui, column);
        case Screen::midiInput:
            return midiInputPanel = new MidiInput::MidiInputPanel(gui, column);
        case Screen::controls:
            return controlPanel = new Controls::ControlPanel(gui, column);
        case Screen::zones:
            return zonePanel = new Zones::ZonePanel(gui, outputPanel);
        case Screen::layers:
            return layerPanel = new Layers::MainPanel(gui, outputPanel);
        case Screen::cc:
            return ccPanel = new Cc::CcPanel(gui, sent, outputPanel);
    }
    return nullptr;
}

void MainWindow::ensureMade(Screen screen)
{
    if (panelOf(screen) != nullptr) return;
    Panel* const made = makePanel(screen);
    const auto isBelow = [&](Screen other) {
        const Panel* const panel = panelOf(other);
        return panel != nullptr && panel->parentWidget() == made->parentWidget();
    };
    const auto* const below = std::find_if(std::ranges::find(DOWNWARDS, screen) + 1, std::end(DOWNWARDS), isBelow);
    if (below != std::end(DOWNWARDS)) made->moveAbove(*panelOf(*below));
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
        case Screen::oscillators:
            return oscPanel;
        case Screen::joystick:
            return joystickPanel;
        case Screen::midiInput:
            return midiInputPanel;
        case Screen::computerInput:
            return computerInputPanel;
        case Screen::controls:
            return controlPanel;
        case Screen::output:
            return outputPanel;
        case Screen::zones:
            return zonePanel;
        case Screen::layers:
            return layerPanel;
        case Screen::cc:
            return ccPanel;
    }
    return nullptr;
}

void MainWindow::showScreen(Screen screen, bool on)
{
    const bool isNew = on && panelOf(screen) == nullptr;
    setShown(screen, on);
    if (isNew) gui.getOrvMessageManager().postRefreshGui();
    if (on && isInOutput(screen)) setShown(Screen::output, true);
    fit();  // a hidden column gets no resize event
    showScreenStates();
}

void MainWindow::setShown(Screen screen, bool on)
{
    if (on) ensureMade(screen);
    Panel* const panel = panelOf(screen);
    if (panel == nullptr) return;
    if (!on) keyboard->takeFocusFrom(*panel);
    if (!on && screen == Screen::system) keyboard->takeFocusFrom(*stagePanel);
    panel->show(on);
    if (screen == Screen::system) stagePanel->show(on);
}

void MainWindow::showScreenStates()
{
    for (const Screen screen : SCREENS) systemPanel->screenShown(screen, isShowing(screen));
    lightNotes();
}

/// While a screen that shows them is seen.
void MainWindow::lightNotes()
{
    noteLights.setOn(isVisible() && (isShowing(Screen::zones) || isShowing(Screen::layers)));
}

void MainWindow::toggleScreen(Screen screen) { showScreen(screen, !isShowing(screen)); }

bool MainWindow::isShowing(Screen screen) const
{
    const Panel* const panel = panelOf(screen);
    return panel != nullptr && panel->isShown() && (!isInOutput(screen) || outputPanel->isShown());
}

ScreenState MainWindow::getScreenState() const
{
    auto bits = ScreenState{}.toBits();
    for (const Screen screen : SCREENS) {
        const Panel* const panel = panelOf(screen);
        bits[static_cast<std::size_t>(screen)] = panel != nullptr && panel->isShown();
    }
    return ScreenState::fromBits(bits);
}

void MainWindow::setScreenState(const ScreenState& state)
{
    const auto bits = state.toBits();
    for (const Screen screen : SCREENS) setShown(screen, bits[static_cast<std::size_t>(screen)]);
    fit();
    showScreenStates();
}

/// Takes the size of the screens that are shown, or of the three buttons where there are none.
void MainWindow::fit()
{
    if (view == nullptr) return;  // it is being made
    const bool compact = isCompact();
    const bool hasButtons = !stagePanel->isShown();
    for (auto* button : {resetButton, thruButton, keyboardButton}) button->setVisible(hasButtons);
    view->setVisible(!compact);
    if (hasButtons) {
        setMidiThru(gui.getRegistrySettings().getMidiThru());
        setGlobalKeyboard(gui.getRegistrySettings().getGlobalKeyboard());
    }
    const GdiManager& gdi = gui.getGdiManager();
    const QSize needed =
        compact ? gdi.px(COMPACT) : QSize(gdi.px(WIDTH), getHeadHeight() + column->height() + 2 * gdi.px(MARGIN));
    if (needed != lastSize) {
        const QSize before = lastSize;
        lastSize = needed;
        resized(before, needed);
        resize(parentWidget() == nullptr ? needed : parentWidget()->size());
    }
    layOut();
}

/// Of what never scrolls away: the upper rows of the system screen with the gap below them, or the three buttons.
int MainWindow::getHeadHeight() const
{
    const GdiManager& gdi = gui.getGdiManager();
    return stagePanel->isShown() ? stagePanel->height() + gdi.px(GAP) : gdi.px(COMPACT.height()) - gdi.px(MARGIN);
}

void MainWindow::layOut()
{
    const GdiManager& gdi = gui.getGdiManager();
    const int margin = gdi.px(MARGIN);
    const int left = std::max(0, (width() - gdi.px(WIDTH)) / 2) + margin;
    stagePanel->move(left, margin);
    const int top = margin + getHeadHeight();
    view->setGeometry(left, top, std::max(0, std::min(width() - left, gdi.px(WIDTH) - margin)),
                      std::max(0, height() - top - margin));
    for (auto* button : {resetButton, thruButton, keyboardButton})
        button->setGeometry(gdi.px(button->property(PLACE).toRect()));
}

void MainWindow::resizeEvent(QResizeEvent*) { layOut(); }

void MainWindow::rescale()
{
    stagePanel->rescale();
    column->rescale();
    fit();
}

QSize MainWindow::getNaturalSize() const
{
    const double scale = gui.getGdiManager().getScale();
    return {qRound(lastSize.width() / scale), qRound(lastSize.height() / scale)};
}

// --- files that are dropped

namespace
{
/// The first one that can be loaded; empty if there is none.
QString findFile(const QMimeData& data)
{
    for (const QUrl& url : data.urls())
        if (const QString path = QDir::toNativeSeparators(url.toLocalFile()); path.endsWith(QLatin1String(".bnk")) ||
                                                                              path.endsWith(QLatin1String(".prg")) ||
                                                                              path.endsWith(QLatin1String(".pst")))
            return path;
    return {};
}
}  // namespace

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (!findFile(*event->mimeData()).isEmpty() && !hasDialog()) event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event)
{
    event->acceptProposedAction();
    gui.loadFile(findFile(*event->mimeData()).toStdString());
}

// --- the small window, and the menu of screens

bool MainWindow::isCompact() const { return !column->hasShownChild(); }

void MainWindow::setCompact(bool on)
{
    if (on == isCompact()) return;
    if (on) {
        stateBeforeCompact = getScreenState();
        for (const Screen screen : SCREENS)
            if (!isInOutput(screen)) gui.showScreen(screen, false);
        return;
    }
    const auto bits = stateBeforeCompact.value_or(ScreenState{}).toBits();
    for (const Screen screen : SCREENS)
        if (bits[static_cast<std::size_t>(screen)] && !isInOutput(screen)) gui.showScreen(screen, true);
    if (isCompact()) gui.showScreen(Screen::system, true);
}

/// Of the background: all screens, and the small window.
void MainWindow::contextMenuEvent(QContextMenuEvent* event)
{
    const QWidget* there = childAt(event->pos());
    const bool isBackground = there == nullptr || there == view->viewport() ||
                              dynamic_cast<const Panel*>(there) != nullptr ||
                              qobject_cast<const QLabel*>(there) != nullptr;
    if (isBackground) showScreenMenu(event->globalPos());
}

void MainWindow::showScreenMenu(const QPoint& globalPosition)
{
    constexpr int SMALL_WINDOW = 100;
    auto* menu = new PopupMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const Screen screen : SCREENS) {
        QAction& item = menu->addItem({.text = System::nameOf(screen), .id = static_cast<int>(screen)});
        item.setCheckable(true);
        item.setChecked(isShowing(screen));
    }
    menu->addItem({.text = isCompact() ? tr("Show the screens") : tr("Small window"), .id = SMALL_WINDOW});
    menu->onChosen = [this](int id) {
        if (id == SMALL_WINDOW)
            setCompact(!isCompact());
        else
            gui.toggleScreen(static_cast<Screen>(id));
    };
    menu->show(globalPosition);
}

void MainWindow::setMidiThru(bool on) { thruButton->setChecked(on); }

void MainWindow::setGlobalKeyboard(bool on)
{
    keyboardButton->setChecked(on);
    Property::setHelp(*keyboardButton, QString::fromStdString(GlobalKeyboard::describe(gui.getGlobalKeyboardReason())));
}

void MainWindow::handleZones(const Backend::Zones::ZoneMap& zones)
{
    if (joystickPanel != nullptr) joystickPanel->handleZones(zones);
    computerInputPanel->handleZones(zones);
    if (zonePanel != nullptr) zonePanel->handleZones(zones);
}

void MainWindow::handleZoneTranspose(Backend::Zones::ZoneId zone, int transpose)
{
    if (joystickPanel != nullptr) joystickPanel->handleZoneTranspose(zone, transpose);
    computerInputPanel->handleZoneTranspose(zone, transpose);
    if (zonePanel != nullptr) zonePanel->handleZoneTranspose(zone, transpose);
}

void MainWindow::handleZoneSelected(Backend::Zones::ZoneId zone, bool selected)
{
    if (zonePanel != nullptr) zonePanel->handleZoneSelected(zone, selected);
}

void MainWindow::handleMidiInputPortsChanged(const Backend::MidiEngine::MidiInputPorts& ports)
{
    if (displayPanel != nullptr) displayPanel->handleMidiInputPortsChanged(ports);
    systemPanel->handleMidiInputPortsChanged(ports);
}

void MainWindow::handleMidiOutputPortsChanged(const Backend::MidiEngine::MidiOutputPorts& ports)
{
    if (displayPanel != nullptr) displayPanel->handleMidiOutputPortsChanged(ports);
    outputPanel->handleMidiOutputPortsChanged(ports);
    if (ccPanel != nullptr) ccPanel->handleMidiOutputPortsChanged(ports);
    systemPanel->handleMidiOutputPortsChanged(ports);
    if (layerPanel != nullptr) layerPanel->getLayerPanel().handleMidiOutputPorts();
}

void MainWindow::handleSettingsChanged(const Backend::RegistrySettings& settings)
{
    if (displayPanel != nullptr) displayPanel->handleSettingsChanged(settings);
    if (ccPanel != nullptr) ccPanel->handleSettingsChanged(settings);
}

void MainWindow::handleLargeDisplayFontChanged(bool on)
{
    if (displayPanel != nullptr) displayPanel->handleLargeDisplayFontChanged(on);
}

void MainWindow::handleDefaultMidiOutputChanged(int output)
{
    outputPanel->handleDefaultMidiOutputChanged(output);
    systemPanel->handleDefaultMidiOutputChanged(output);
    if (ccPanel != nullptr) ccPanel->handleDefaultMidiOutputChanged();
}

void MainWindow::handleSequenceSteps(const std::vector<int>& steps)
{
    if (layerPanel != nullptr) layerPanel->handleSequenceSteps(steps);
}

void MainWindow::handleSequencePresets()
{
    if (layerPanel != nullptr) layerPanel->handleSequencePresets();
}

void MainWindow::displayMidiOutputEvent(const Backend::MidiEngine::OrvMidiMessage& event)
{
    stagePanel->displayMidiOutputEvent();
    outputPanel->displayMidiOutputEvent(event);
    if (sent.take(event) && ccPanel != nullptr) ccPanel->handleSent();
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
    if (event->type() == QEvent::Resize && object == parentWidget()) resize(parentWidget()->size());
    if (auto* dialog = qobject_cast<QDialog*>(object);
        dialog != nullptr && event->type() == QEvent::Polish && isWithin(*dialog, *this))
        frameDialog(*dialog);
    const auto* widget = qobject_cast<QWidget*>(object);
    if (event->type() == QEvent::KeyPress && widget != nullptr && isAncestorOf(widget))
        return useSectionKey(static_cast<const QKeyEvent&>(*event));
    if (event->type() != QEvent::Enter && event->type() != QEvent::FocusIn) return false;
    if (widget != nullptr && (widget->window() == window() || isWithin(*widget, *this))) showHelpOf(*widget);
    return false;
}

/// Also from what never scrolls away into the column.
bool MainWindow::focusNextPrevChild(bool next)
{
    if (!QWidget::focusNextPrevChild(next)) return false;
    QWidget* const focused = QApplication::focusWidget();
    if (focused != nullptr && column->isAncestorOf(focused)) view->ensureWidgetVisible(focused);
    return true;
}

/// As the window is framed.
void MainWindow::frameDialog(QDialog& dialog) const
{
    if (gui.getRegistrySettings().getUseSkinBorder()) DialogFrame::addTo(dialog, gui.getGdiManager());
}

bool MainWindow::hasDialog() const
{
    const auto dialogs = findChildren<QDialog*>();
    return std::ranges::any_of(dialogs, [](const QDialog* dialog) { return dialog->isVisible(); });
}

KeyPresses& MainWindow::getKeyPresses() { return keyboard->getKeyPresses(); }

void MainWindow::setPlayingFocus() { keyboard->takeFocus(); }

void MainWindow::playEveryKey(bool on) { keyboard->playEveryKey(on); }

/// Keys that the focused control did not use.
void MainWindow::keyPressEvent(QKeyEvent* event) { keyboard->keyPressed(*event); }

/// Control and Z undoes, with Shift it does again; the keys of the section that is edited act on what is selected
/// there. All unless the program binds them.
bool MainWindow::useWindowKey(const QKeyEvent& event)
{
    using Forms::RecordEditor;
    const bool again = event.modifiers() == (Qt::ControlModifier | Qt::ShiftModifier);
    const bool isUndo = event.key() == Qt::Key_Z && (again || event.modifiers() == Qt::ControlModifier);
    RecordEditor* const section = gui.getEditableSections().getActive();
    const auto command = section != nullptr ? RecordEditor::commandOf(event) : std::nullopt;
    if (!isUndo && !(command && section->canExecute(*command))) return false;
    if (computerInputPanel->isBound(readKey(event))) return false;
    if (command)
        section->execute(*command);
    else
        again ? gui.getEdits().redo() : gui.getEdits().undo();
    return true;
}

/// Control and Tab moves from section to section, with Shift back.
bool MainWindow::useSectionKey(const QKeyEvent& event)
{
    using Direction = Forms::EditableSections::Direction;
    const bool isBack = event.key() == Qt::Key_Backtab || event.modifiers().testFlag(Qt::ShiftModifier);
    if ((event.key() != Qt::Key_Tab && event.key() != Qt::Key_Backtab) ||
        (event.modifiers() & ~Qt::ShiftModifier) != Qt::ControlModifier)
        return false;
    return gui.getEditableSections().moveFocus(isBack ? Direction::previous : Direction::next);
}

void MainWindow::keyReleaseEvent(QKeyEvent* event) { keyboard->keyReleased(*event); }

void MainWindow::showKeyTarget(KeyTarget target)
{
    stagePanel->showKeyTarget(target);
    gui.handleKeyTarget(target);
}

void MainWindow::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    showKeyTarget(keyboard->findTarget(QApplication::focusWidget()));
    lightNotes();
}

void MainWindow::hideEvent(QHideEvent* event)
{
    keyboard->releaseTyped();
    QWidget::hideEvent(event);
    lightNotes();
}
}  // namespace Gui
