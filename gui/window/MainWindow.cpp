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
#include "gui/framework/DialogFrame.h"
#include "gui/framework/Panel.h"
#include "gui/framework/PopupMenu.h"
#include "gui/framework/Properties.h"
#include "gui/framework/Switches.h"
#include "gui/framework/WidgetTree.h"
#include "gui/keyboard/GlobalKeyboard.h"
#include "gui/screens/system/ScreenButtons.h"
#include "gui/screens/system/StagePanel.h"
#include "gui/window/ScreenColumn.h"
#include "gui/window/WindowKeys.h"

namespace Gui
{
using Backend::Screen;

namespace
{
constexpr int MARGIN = 4;  // logical pixels, as all of these
constexpr int GAP = 8;
constexpr QSize COMPACT(104, 33);
constexpr int BUTTON_TOP = 6;
constexpr QSize BUTTON(29, 20);
constexpr const char* PLACE = "PLACE";
}  // namespace

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

MainWindow::MainWindow(OrvGuiIF& owner, QWidget* parent, Resized onResize)
    : QWidget(parent), gui(owner), resized(std::move(onResize)), keys(std::make_unique<WindowKeys>(owner, *this))
{
    setWindowTitle(QStringLiteral("OrvGui"));
    setAutoFillBackground(true);
    setAcceptDrops(true);
    makeButtons();
    screens = new ScreenColumn(gui, keys->getKeyboard(), *this);
    view = new ColumnView(this, *screens);
    screens->onChange = [this] { fit(); };
    screens->show(true);
    rescale();
    qApp->installEventFilter(this);
}

MainWindow::~MainWindow()
{
    hide();  // while the objects that its screens use exist
    qApp->removeEventFilter(this);
    keys->getKeyboard().releaseAll();
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

/// Takes the size of the screens that are shown, or of the three buttons where there are none.
void MainWindow::fit()
{
    const bool compact = isCompact();
    const bool hasButtons = !screens->getStagePanel().isShown();
    for (auto* button : {resetButton, thruButton, keyboardButton}) button->setVisible(hasButtons);
    view->setVisible(!compact);
    if (hasButtons) {
        setMidiThru(gui.getRegistrySettings().getMidiThru());
        setGlobalKeyboard(gui.getRegistrySettings().getGlobalKeyboard());
    }
    const GdiManager& gdi = gui.getGdiManager();
    const QSize needed =
        compact ? gdi.px(COMPACT) : QSize(gdi.px(WIDTH), getHeadHeight() + screens->height() + 2 * gdi.px(MARGIN));
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
    const Panel& stage = screens->getStagePanel();
    return stage.isShown() ? stage.height() + gdi.px(GAP) : gdi.px(COMPACT.height()) - gdi.px(MARGIN);
}

void MainWindow::layOut()
{
    const GdiManager& gdi = gui.getGdiManager();
    const int margin = gdi.px(MARGIN);
    const int left = std::max(0, (width() - gdi.px(WIDTH)) / 2) + margin;
    screens->getStagePanel().move(left, margin);
    const int top = margin + getHeadHeight();
    view->setGeometry(left, top, std::max(0, std::min(width() - left, gdi.px(WIDTH) - margin)),
                      std::max(0, height() - top - margin));
    for (auto* button : {resetButton, thruButton, keyboardButton})
        button->setGeometry(gdi.px(button->property(PLACE).toRect()));
}

void MainWindow::resizeEvent(QResizeEvent*) { layOut(); }

void MainWindow::rescale()
{
    screens->getStagePanel().rescale();
    screens->rescale();
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

bool MainWindow::isCompact() const { return !screens->hasShownChild(); }

void MainWindow::setCompact(bool on)
{
    if (on != isCompact()) on ? screens->hideAll() : screens->showHidden();
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
    for (const Screen screen : ScreenColumn::SCREENS) {
        QAction& item = menu->addItem({.text = System::nameOf(screen), .id = static_cast<int>(screen)});
        item.setCheckable(true);
        item.setChecked(screens->isShowing(screen));
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
        return keys->useSectionKey(static_cast<const QKeyEvent&>(*event));
    if (event->type() != QEvent::Enter && event->type() != QEvent::FocusIn) return false;
    if (widget != nullptr && (widget->window() == window() || isWithin(*widget, *this))) showHelpOf(*widget);
    return false;
}

/// Also from what never scrolls away into the column.
bool MainWindow::focusNextPrevChild(bool next)
{
    if (!QWidget::focusNextPrevChild(next)) return false;
    QWidget* const focused = QApplication::focusWidget();
    if (focused != nullptr && screens->isAncestorOf(focused)) view->ensureWidgetVisible(focused);
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

KeyPresses& MainWindow::getKeyPresses() { return keys->getKeyboard().getKeyPresses(); }

void MainWindow::setPlayingFocus() { keys->getKeyboard().takeFocus(); }

void MainWindow::playEveryKey(bool on) { keys->getKeyboard().playEveryKey(on); }

/// Keys that the focused control did not use.
void MainWindow::keyPressEvent(QKeyEvent* event) { keys->getKeyboard().keyPressed(*event); }

void MainWindow::keyReleaseEvent(QKeyEvent* event) { keys->getKeyboard().keyReleased(*event); }

void MainWindow::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    keys->showTarget();
}

void MainWindow::hideEvent(QHideEvent* event)
{
    keys->getKeyboard().releaseTyped();
    QWidget::hideEvent(event);
}
}  // namespace Gui
