#include "host/window/RunWithWindow.h"

#include <QApplication>
#include <chrono>
#include <clocale>
#include <filesystem>
#include <iostream>
#include <thread>

#include "host/terminal/StandardError.h"
#include "host/window/DesktopWindow.h"
#include "host/window/HelpLine.h"
#include "host/window/PlayThread.h"
#include "host/window/SingleInstance.h"

namespace Host
{
using namespace std::chrono_literals;

namespace
{
// As long as a window takes to close, or to open.
constexpr auto LONGEST_WAIT_FOR_THE_OTHER = 10s;
constexpr auto PAUSE = 50ms;
constexpr int FAILED = 1;

/// Qt's application for `main`'s whole length.
class Application
{
public:
    explicit Application(std::string platformName) : platform(std::move(platformName)), application(count, arguments)
    {
        QGuiApplication::setDesktopFileName(QStringLiteral("orvane"));  // the menu entry, whose icon the desktop shows
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

bool isNothingButFiles(const RunOptions& options)
{
    RunOptions files;
    files.setup.loads = options.setup.loads;
    return options == files;
}

std::vector<std::string> absolutePaths(std::vector<std::string> files)
{
    for (std::string& file : files) file = std::filesystem::absolute(file).string();
    return files;
}

/// The window is ours to open, with its door if there can be one, or the exit status says what became of the other's.
struct Arrival {
    std::unique_ptr<SingleInstance> door{};
    std::optional<int> exitStatus{};
};

/// A window that is about to close, or just opening, does not answer: then it is tried again.
Arrival arrive(const RunOptions& options)
{
    if (!isNothingButFiles(options)) return {.door = SingleInstance::build()};
    const auto files = absolutePaths(options.setup.loads);
    for (const auto giveUp = std::chrono::steady_clock::now() + LONGEST_WAIT_FOR_THE_OTHER;
         std::chrono::steady_clock::now() < giveUp; std::this_thread::sleep_for(PAUSE)) {
        if (auto door = SingleInstance::build()) return {.door = std::move(door)};
        switch (SingleInstance::knock(files)) {
            case SingleInstance::Knock::answered:
                std::cout << "Orvane is open already; here is its window." << std::endl;
                return {.exitStatus = 0};
            case SingleInstance::Knock::impossible:
                return {};
            case SingleInstance::Knock::inVain:
                break;
        }
    }
    reportOnStandardError("Orvane is open already, but its window does not answer.");
    return {.exitStatus = FAILED};
}

/// Out of every event loop. Any thread.
void leave()
{
    QMetaObject::invokeMethod(
        qApp, [] { QCoreApplication::exit(0); }, Qt::QueuedConnection);
}

/// A window whose end was asked for takes nobody in, also before it closes.
void welcome(SingleInstance& door, const PlayThread& play, LiveHost& host, Frame& frame)
{
    door.open([&](const std::vector<std::string>& files) {
        if (play.isEnding()) return false;
        for (const std::string& file : files) postLoad(host.getPlay().getOrv().getOrvMessageManager(), file);
        QMetaObject::invokeMethod(&frame, &Frame::raiseAboveAll, Qt::QueuedConnection);
        return true;
    });
}

void playWithWindow(PlayThread& play, SingleInstance* door, HelpLine& helpLine, const RunOptions& options)
{
    LiveHost& host = play.waitUntilPlaying();
    DesktopWindow window(host.getPlay().getOrv(), &leave);
    helpLine.showIn(window.getGui());
    if (options.display) window.getGui().showScreen(Backend::Screen::display, true);
    if (door != nullptr) welcome(*door, play, host, window.getFrame());
    std::cout << host.describe() << "Closing the window, or Ctrl+C, ends with every note off." << std::endl;
    QApplication::exec();
    if (door != nullptr) door->close();
    helpLine.leave();
}
}  // namespace

int runWithWindow(const RunOptions& options, const std::string& platform)
{
    checkRunOptions(options);
    const auto [door, exitStatus] = arrive(options);
    if (exitStatus) return *exitStatus;
    const Application application(platform);
    HelpLine helpLine;
    PlayThread play(
        options,
        [&helpLine](const std::string& line) {
            reportOnStandardError(line);
            helpLine.show(line);
        },
        &leave);
    playWithWindow(play, door.get(), helpLine, options);
    play.end();
    return 0;
}
}  // namespace Host
