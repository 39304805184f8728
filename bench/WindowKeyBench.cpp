// The time from a pressed key to the player beside a window under full load: every screen is repainted all the time,
// and the display gets ten thousand events a second. `build/release/bin/bench_key_under_load [PRESSES]` measures three
// cases: without a window; with the busy window, but not through it, like keys of the global keyboard and MIDI; and
// through its event queue, like typed keys, which wait until the present painting is finished. Runs without a display
// (QT_QPA_PLATFORM=offscreen).

#include <QApplication>
#include <QInputDevice>
#include <QKeyEvent>
#include <QTimer>
#include <chrono>
#include <cstdlib>
#include <thread>

#include "backend/messages/GuiMessages.h"
#include "bench/KeyLatency.h"
#include "host/window/DesktopWindow.h"

using namespace std::chrono_literals;

namespace
{
constexpr Backend::Screen SCREENS[] = {
    Backend::Screen::system,        Backend::Screen::help,     Backend::Screen::display,
    Backend::Screen::oscillators,   Backend::Screen::joystick, Backend::Screen::midiInput,
    Backend::Screen::computerInput, Backend::Screen::controls, Backend::Screen::output,
    Backend::Screen::layers,        Backend::Screen::cc,       Backend::Screen::zones};

/// Posts played events to the window, which the player does not get.
class Flood
{
public:
    explicit Flood(WindowHandle window) : target(std::move(window)), thread([this] { run(); }) {}
    ~Flood()
    {
        stopping = true;
        thread.join();
    }

private:
    void run() const
    {
        for (std::uint32_t event = 0; !stopping; ++event) {
            target.post({.number = Backend::GuiMessage::MIDI_OUTPUT_EVENT,
                         .wparam = 0x90 | (event % 128) << 8 | (event % 2 == 0 ? 0x640000u : 0)});
            std::this_thread::sleep_for(50us);
        }
    }

    const WindowHandle target;
    std::atomic<bool> stopping{false};
    std::thread thread;
};

/// Posts key events to the control with the focus, through the event queue of the thread that paints.
KeySender typedKeys(QWidget& focus)
{
    QInputDevice::primaryKeyboard();  // made with the first event, and belongs to this thread
    const auto post = [&focus](QEvent::Type type) {
        QCoreApplication::postEvent(&focus, new QKeyEvent(type, Qt::Key_Q, Qt::NoModifier, QStringLiteral("q")));
    };
    return {.press = [post] { post(QEvent::KeyPress); }, .release = [post] { post(QEvent::KeyRelease); }};
}

void measureKeys(LiveStage& stage, const std::string& name, int presses, const KeySender& way)
{
    KeyTimes times;
    pressKeys(stage, presses, way, times);
    printKeys(name, std::move(times));
}
}  // namespace

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const int presses = countOfPresses(argc, argv, 2000);
    LiveStage stage;
    measureKeys(stage, "no window", presses, postedKeys(stage));

    Host::DesktopWindow window(*stage.orv, [] {});
    for (const auto screen : SCREENS) window.getGui().showScreen(screen, true);
    QApplication::processEvents();
    stage.rest();

    int paintings = 0;
    QTimer painting;
    QObject::connect(&painting, &QTimer::timeout, [&] {
        window.getFrame().repaint();
        ++paintings;
    });
    painting.start(0);
    const Flood flood(window.getGui().getWindowHandle());
    const KeySender typed = typedKeys(*window.getFrame().focusWidget());
    const auto start = std::chrono::steady_clock::now();
    std::thread measuring([&] {
        measureKeys(stage, "beside a busy window", presses, postedKeys(stage));
        measureKeys(stage, "through a busy window", presses, typed);
        QMetaObject::invokeMethod(qApp, [] { QCoreApplication::exit(0); });
    });
    QApplication::exec();
    measuring.join();
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
    std::printf("painted %.0f times a second\n", paintings / time.count());
}
