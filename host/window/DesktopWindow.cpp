#include "host/window/DesktopWindow.h"

#include <new>
#include <utility>

#include "api/OrvIF.h"
#include "api/OrvMessageManager.h"

namespace Host
{
DesktopWindow::DesktopWindow(Backend::OrvIF& orv, std::function<void()> closeRequested)
    : frame([this, close = std::move(closeRequested)] { gui->askBeforeLoss(Gui::OrvGuiIF::Loss::ofAll, close); }),
      gui(orv.getOrvMessageManager().sendCreateOrvGui(false))
{
    if (!gui) throw std::bad_alloc();
    gui->initialize();
    frame.onScale = [this](int percent) { gui->setScale(percent); };
    frame.onHeight = [this](int height) { gui->setHeight(height); };
    frame.onRefit = [this] { gui->refit(); };
    frame.onToggleCompact = [this] { gui->setCompact(!gui->isCompact()); };
    gui->create(frame);
    frame.show();
    frame.raiseAboveAll();
}

DesktopWindow::~DesktopWindow() { gui->end(); }
}  // namespace Host
