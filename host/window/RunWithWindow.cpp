#include "host/window/RunWithWindow.h"

#include <QApplication>
#include <QFontMetrics>
#include <chrono>
#include <clocale>
#include <filesystem>
#include <optional>
#include <thread>

#include "api/HostState.h"
#include "api/OrvMessageManager.h"
#include "host/terminal/LineOutput.h"
#include "host/terminal/StandardError.h"
#include "host/window/DesktopWindow.h"
#include "host/window/HelpLine.h"
#include "host/window/PlayThread.h"
#include "host/window/SingleInstance.h"
#include "platform/Path.h"

namespace Host
{
using namespace std::chrono_literals;

namespace
{
// As long as a window takes to close, or to open.
constexpr auto LONGEST_WAIT_FOR_THE_OTHER = 10s;
constexpr auto PAUSE = 50ms;
constexpr int FAILED = 1;

/// Qt's application object.
class Application
{
public:
    explicit Application(std::string platformName) : platform(std::move(platformName)), application(count, arguments)
    {
        QGuiApplication::setDesktopFileName(QStringLiteral("orvane"));  // the menu entry, whose icon the desktop shows
        std::setlocale(LC_NUMERIC, "C");  // Qt sets the user's; numbers are printed and parsed without it
    }

private:
    char name[7] = "orvane";
    char option[10] = "-platform";
    std::string platform;
    char* arguments[4] = {name, option, platform.data(), nullptr};
    int count = 3;
    QApplication application;
};

/// Reads the system's list of fonts, which takes about as long as opening the MIDI system, so it is done meanwhile.
void loadFonts() { QFontMetrics(QApplication::font()).horizontalAdvance(QLatin1Char('A')); }

bool isNothingButFiles(const RunOptions& options)
{
    RunOptions files;
    files.setup.loads = options.setup.loads;
    return options == files;
}

std::vector<std::string> absolutePaths(std::vector<std::string> files)
{
    for (std::string& file : files) file = textOf(std::filesystem::absolute(pathOf(file)));
    return files;
}

/// Either this process opens the window, with the socket if that is possible, or the exit status says what became of
/// the request to the open window.
struct Start {
    std::unique_ptr<SingleInstance> instance{};
    std::optional<int> exitStatus{};
};

/// Tries again while the open window does not answer, because it may be opening or closing.
Start start(const RunOptions& options)
{
    if (!isNothingButFiles(options)) return {.instance = SingleInstance::acquire()};
    const auto files = absolutePaths(options.setup.loads);
    for (const auto deadline = std::chrono::steady_clock::now() + LONGEST_WAIT_FOR_THE_OTHER;
         std::chrono::steady_clock::now() < deadline; std::this_thread::sleep_for(PAUSE)) {
        if (auto instance = SingleInstance::acquire()) return {.instance = std::move(instance)};
        switch (SingleInstance::notify(files)) {
            case SingleInstance::Result::accepted:
                standardOutput().write("Orvane is already open; its window was brought to the front.\n");
                return {.exitStatus = 0};
            case SingleInstance::Result::impossible:
                return {};
            case SingleInstance::Result::noAnswer:
                break;
        }
    }
    reportOnStandardError("Orvane is already open, but its window does not answer.");
    return {.exitStatus = FAILED};
}

/// Ends every event loop. Any thread.
void leaveEventLoop()
{
    QMetaObject::invokeMethod(
        qApp, [] { QCoreApplication::exit(0); }, Qt::QueuedConnection);
}

/// From the request to end on, other starts are refused.
void acceptOtherStarts(SingleInstance& instance, const PlayThread& play, LiveHost& host, Frame& frame)
{
    instance.listen([&](const std::vector<std::string>& files) {
        if (play.isEnding()) return false;
        for (const std::string& file : files) postLoad(host.getPlay().getOrv().getOrvMessageManager(), file);
        QMetaObject::invokeMethod(&frame, &Frame::raiseAboveAll, Qt::QueuedConnection);
        return true;
    });
}

/// A bank on the command line is restored as it was edited; with other files the recovery file waits for a start
/// without any. A session has its own.
Backend::RecoveryPlan recoveryOf(const RunOptions& options)
{
    using enum Backend::RecoveryPlan::Restores;
    if (options.session != nullptr) return {.restores = any, .newerThan = textOf(options.session->getProgramPath())};
    const auto& files = options.setup.loads;
    const bool isBank = files.size() == 1 && pathOf(files.front()).extension() == ".bnk";
    return {.restores = files.empty() ? any : isBank ? ofCurrentBank : nothing};
}

void playWithWindow(PlayThread& play, SingleInstance* instance, HelpLine& helpLine, const RunOptions& options)
{
    LiveHost& host = play.waitUntilPlaying();
    auto& backend = host.getPlay().getOrv().getOrvMessageManager();
    backend.postKeepDrafts(true);
    backend.postKeepRecovery(recoveryOf(options));
    DesktopWindow window(host.getPlay().getOrv(), &leaveEventLoop);
    helpLine.attach(window.getGui());
    play.setStatusReceiver([&window](const Gui::HostStatus& status) {
        QMetaObject::invokeMethod(
            &window.getFrame(), [&window, status] { window.getGui().showHostStatus(status); }, Qt::QueuedConnection);
    });
    if (options.display) window.getGui().showScreen(Backend::Screen::display, true);
    if (instance != nullptr) acceptOtherStarts(*instance, play, host, window.getFrame());
    standardOutput().write(host.describe() + "Closing the window, or Ctrl+C, ends every note and the program.\n");
    QApplication::exec();
    if (instance != nullptr) instance->stopListening();
    play.setStatusReceiver(nullptr);
    helpLine.detach();
}
}  // namespace

int runWithWindow(const RunOptions& options, const std::string& platform)
{
    checkRunOptions(options);
    const auto [instance, exitStatus] = start(options);
    if (exitStatus) return *exitStatus;
    const Application application(platform);
    HelpLine helpLine;
    RunOptions played = options;
    played.setup.continuesLast = played.session == nullptr;
    PlayThread play(
        played,
        [&helpLine](const std::string& line) {
            reportOnStandardError(line);
            helpLine.show(line);
        },
        &leaveEventLoop);
    loadFonts();
    playWithWindow(play, instance.get(), helpLine, options);
    play.end();
    return 0;
}
}  // namespace Host
