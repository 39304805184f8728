#include "host/window/HelpLine.h"

#include <QCoreApplication>
#include <QMetaObject>
#include <utility>

#include "gui/OrvGuiIF.h"

namespace Host
{
void HelpLine::show(const std::string& line)
{
    {
        const std::lock_guard guard(lock);
        waiting += waiting.empty() ? line : "\n" + line;
    }
    QMetaObject::invokeMethod(
        qApp, [this] { showWaiting(); }, Qt::QueuedConnection);
}

void HelpLine::showIn(Gui::OrvGuiIF& openGui)
{
    gui = &openGui;
    showWaiting();
}

void HelpLine::leave() { gui = nullptr; }

void HelpLine::showWaiting()
{
    if (gui == nullptr) return;
    std::string lines;
    {
        const std::lock_guard guard(lock);
        lines = std::exchange(waiting, {});
    }
    if (!lines.empty()) gui->displayHelp(lines);
}
}  // namespace Host
