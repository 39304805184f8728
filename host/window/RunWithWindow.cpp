#include "host/window/RunWithWindow.h"

#include <QApplication>
#include <clocale>
#include <iostream>

#include "host/window/DesktopWindow.h"
#include "host/window/HelpLine.h"
#include "host/window/PlayThread.h"

namespace Host
{
namespace
{
/// Qt's application for `main`'s whole length.
class Application
{
public:
    explicit Application(std::string platformName) : platform(std::move(platformName)), application(count, arguments)
    {
        std::setlocale(LC_NUMERIC, "C");  // Qt takes the user's; what others print and parse stays as it was
    }

private:
    char name[7] = "orvane";
    char option[10] = "-platform";
    std::string platform;
    char* arguments[4] = {name, option, platform.data(), nullptr};
    int count = 3;
    QApplication application;
};

/// Out of every event loop. Any thread.
void leave()
{
    QMetaObject::invokeMethod(
        qApp, [] { QCoreApplication::exit(0); }, Qt::QueuedConnection);
}

void open(LiveHost& host, HelpLine& helpLine, const RunOptions& options)
{
    DesktopWindow window(host.getPlay().getOrv(), &leave);
    helpLine.showIn(window.getGui());
    if (options.display) window.getGui().showScreen(Backend::Screen::display, true);
    std::cout << host.describe() << "Closing the window, or Ctrl+C, ends with every note off." << std::endl;
    QApplication::exec();
    helpLine.leave();
}
}  // namespace

int runWithWindow(const RunOptions& options, const std::string& platform)
{
    checkRunOptions(options);
    const Application application(platform);
    HelpLine helpLine;
    PlayThread play(
        options,
        [&helpLine](const std::string& line) {
            tellOnStandardError(line);
            helpLine.show(line);
        },
        &leave);
    open(play.waitUntilPlaying(), helpLine, options);
    play.end();
    return 0;
}
}  // namespace Host
