#include "gui/window/OpenWindow.h"

#include <QApplication>
#include <QScreen>
#include <QWindow>
#include <algorithm>

#include "api/OrvGuiIF.h"
#include "api/ParentWindow.h"
#include "backend/files/RegistrySettings.h"
#include "backend/model/WindowMove.h"
#include "gui/files/ProgramsDialog.h"
#include "gui/framework/GuiMessageManagerMaster.h"
#include "gui/framework/WidgetTree.h"
#include "gui/screens/setup/SetupDialog.h"

namespace Gui
{
namespace
{
constexpr RelativeFixedValue UNCHANGED{.relative = true, .value = 0};

RelativeFixedValue by(int pixels) { return {.relative = true, .value = pixels}; }
RelativeFixedValue to(int pixels) { return {.relative = false, .value = pixels}; }
}  // namespace

OpenWindow::OpenWindow(OrvGuiIF& owner, ParentWindow& parentWindow)
    : gui(owner),
      parent(parentWindow),
      skinner(gdi),
      messages(owner),
      globalKeys(owner),
      window([&owner](Message& message) { owner.getGuiMessageManagerMaster().handleMessage(message); }),
      edits(owner.getOrvMessageManager()),
      learner(owner.getOrvMessageManager()),
      inputWatch(owner.getOrvIF())
{
    gui.getGuiMessageManagerMaster().addMessageManager(&messages);
    gui.getGuiMessageManagerMaster().addMessageManager(&globalKeys);
}

OpenWindow::~OpenWindow() { gui.getGuiMessageManagerMaster().clear(); }

void OpenWindow::makeMainWindow()
{
    main = std::make_unique<MainWindow>(gui, parent.getWidget(),
                                        [this](QSize before, QSize now) { sizeChanged(before, now); });
    skinner.skinWindow(*main);
    learner.onLearnsKeys = [this](bool on) { main->playEveryKey(on); };
}

void OpenWindow::applyLook()
{
    const auto& settings = gui.getRegistrySettings();
    constexpr int LAST_SKIN = static_cast<int>(GdiManager::SKINS.size()) - 1;
    const int skin = std::clamp(settings.get<Backend::Settings::SKIN>(), 0, LAST_SKIN);
    const QSize natural = main->getNaturalSize();
    const int percent =
        parent.fitScale(settings.get<Backend::Settings::WINDOW_SCALE>(), natural.width(), natural.height());
    const double scale = percent / 100.0;
    if (skin == shownSkin && scale == gdi.getScale()) return;
    const bool isOtherScale = scale != gdi.getScale();
    shownSkin = skin;
    gdi.setSkin(GdiManager::SKINS[static_cast<std::size_t>(skin)]);
    gdi.setScale(scale);
    skinner.refresh(*main);
    if (isOtherScale) main->rescale();
}

/// The host resizes its frame; with docking the bottom edge stays where it is.
void OpenWindow::sizeChanged(QSize before, QSize now)
{
    parent.windowResized(now.width(), now.height());
    if (main && before.width() != now.width()) applyLook();  // another scale may fit
    if (placed && gui.getRegistrySettings().getDockToBottomEdge() && before.height() != now.height())
        parent.moveWindow(UNCHANGED, by(before.height() - now.height()));
}

void OpenWindow::show()
{
    if (const auto native = parent.getNativeWindow(); native != 0 && parent.getWidget() == nullptr) {
        main->winId();
        main->windowHandle()->setParent(QWindow::fromWinId(static_cast<WId>(native)));
    }
    main->show();
    if (!gui.isVstPlugin()) restorePosition();
    placed = true;
}

void OpenWindow::restorePosition() const
{
    const auto& settings = gui.getRegistrySettings();
    const auto last = settings.getLastWindowPosition();
    if (const int height = settings.get<Backend::Settings::WINDOW_HEIGHT>(); height > 0) parent.heightChosen(height);
    const int height = main->window()->frameGeometry().height();
    const QPoint place(last.left, settings.getDockToBottomEdge() ? last.bottom - height : last.top);
    if (place.x() >= 0 && place.y() >= 0 && QGuiApplication::screenAt(place) != nullptr)
        parent.moveWindow(to(place.x()), to(place.y()));
}

void OpenWindow::move(const Backend::WindowMove& move) const
{
    const QSize desktop = main->screen()->virtualSize();
    parent.moveWindow(move.x.inPixels(desktop.width()), move.y.inPixels(desktop.height()));
}

WindowsLib::Rect OpenWindow::getPosition() const
{
    const QWidget& top = *main->window();
    const bool fillsScreen = top.isMaximized() || top.isFullScreen();
    const QRect frame = fillsScreen ? top.normalGeometry() : top.frameGeometry();
    return {frame.left(), frame.top(), frame.left() + frame.width(), frame.top() + frame.height()};
}

bool OpenWindow::showSetupDialog()
{
    if (setup && setup->isVisible()) {
        setup->activateWindow();
        return false;
    }
    setup = new Setup::SetupDialog(gui, *main);
    setup->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(setup, &QDialog::finished, main.get(), [this] { main->setPlayingFocus(); });
    setup->open();
    return true;
}

void OpenWindow::refreshSetup() const
{
    if (setup) setup->follow();
}

QWidget& OpenWindow::getDialogParent() const
{
    QWidget* dialog = QApplication::activeModalWidget();
    return dialog != nullptr && isWithin(*dialog, *main) ? *dialog : *main;
}
}  // namespace Gui
