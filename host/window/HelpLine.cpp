#include "host/window/HelpLine.h"

#include <QCoreApplication>
#include <QMetaObject>
#include <utility>

#include "api/OrvGuiIF.h"

namespace Host
{
void HelpLine::show(const std::string& line)
{
    {
        const MutexLock guard(lock);
        waiting += waiting.empty() ? line : "\n" + line;
    }
    QMetaObject::invokeMethod(
        qApp, [this] { showWaiting(); }, Qt::QueuedConnection);
}

void HelpLine::attach(Gui::OrvGuiIF& openGui)
{
    gui = &openGui;
    showWaiting();
}

void HelpLine::detach() { gui = nullptr; }

void HelpLine::showWaiting()
{
    if (gui == nullptr) return;
    std::string lines;
    {
        const MutexLock guard(lock);
        lines = std::exchange(waiting, {});
    }
    if (!lines.empty()) gui->displayMessage(lines);
}
}  // namespace Host
