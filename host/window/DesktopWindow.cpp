#include "host/window/DesktopWindow.h"

#include <new>
#include <utility>

#include "api/OrvIF.h"
#include "api/OrvMessageManager.h"

namespace Host
{
DesktopWindow::DesktopWindow(Backend::OrvIF& orv, std::function<void()> closeRequested)
    : frame(std::move(closeRequested)), gui(orv.getOrvMessageManager().sendCreateOrvGui(false))
{
    if (!gui) throw std::bad_alloc();
    gui->initialize();
    gui->create(frame);
    frame.show();
    frame.raiseAboveAll();
}

DesktopWindow::~DesktopWindow() { gui->end(); }
}  // namespace Host
