// The load of the window's thread by a flood of played events: `build/release/bin/bench_window [EVENTS_PER_SECOND]`,
// with each of the screens that show events, without a display; what it takes to paint many layers and zones; and how
// long slices take while a fader follows an oscillator, and while 16 fast ones run, half a minute each without and with
// the screen that shows it.

#include <time.h>

#include <QAbstractSlider>
#include <QApplication>
#include <QPixmap>
#include <QTimer>
#include <QWidget>
#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "api/MidiPlayer.h"
#include "api/OrvFactory.h"
#include "api/OrvGuiIF.h"
#include "api/OrvIF.h"
#include "api/OrvMessageManager.h"
#include "api/ParentWindow.h"
#include "backend/messages/GuiMessages.h"
#include "backend/messages/OscMessageManager.h"
#include "gui/musickeyboard/BarList.h"
#include "gui/window/OrvGuiFactory.h"
#include "tests/stage/PrivateFolders.h"

using namespace Backend;
using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
using MidiEngine::MessageType;
using MidiEngine::OrvMidiMessage;

namespace
{
constexpr auto DURATION = 3s;
constexpr auto TICK = 5ms;
constexpr auto PATIENCE = 20s;
constexpr auto FOLLOWED = 30s;
constexpr int LAYERS = 64;
constexpr int ZONES = 16;
constexpr int OSCILLATORS = 16;

class SilentPlayer final : public MidiEngine::MidiPlayer
{
public:
    void playMidi(const OrvMidiMessage&) override {}
    void enableMidiInput(int, bool) override {}
    void enableMidiOutput(int, bool) override {}
    ThreadId getThreadId() override { return 0; }
    void pulseSequencer() override {}
    void setTempo(int) override {}
    void setTempoSource(char) override {}
    char getTempoSource() override { return -1; }
};

class Surroundings final : public Gui::ParentWindow
{
public:
    QWidget widget;

    QWidget* getWidget() override { return &widget; }
    void windowResized(int width, int height) override { widget.resize(width, height); }
    void moveWindow(const RelativeFixedValue&, const RelativeFixedValue&) override {}
};

/// A backend with one output and a window without screens.
class Instrument
{
public:
    Instrument() : orv(OrvFactory::createOrv("Bench", player, false))
    {
        orv->start();
        auto& commands = orv->getOrvMessageManager();
        commands.sendInitialize();
        commands.sendSetMidiOutputPorts({{{.name = "Out"}}});
        commands.sendEndInitialize();
        gui.reset(commands.sendCreateOrvGui(false));
        gui->initialize();
        gui->create(host);
        host.widget.show();
    }
    ~Instrument()
    {
        gui->end();
        gui.reset();
        orv->getOrvMessageManager().sendEnd();
        orv->stop();
    }
    void show(bool display, bool output)
    {
        for (const Screen screen : {Screen::system, Screen::help, Screen::computerInput})
            gui->showScreen(screen, false);
        gui->showScreen(Screen::display, display);
        gui->showScreen(Screen::output, output);
    }
    WindowHandle window() const { return gui->getWindowHandle(); }

    /// A key that plays a note in the zone.
    static std::string noteKey(int zone)
    {
        const std::string event =
            " note='" + MidiEngine::Note(36 + 4 * zone).toXmlString() + "' zone='" + std::to_string(zone) + "'/>";
        return "<Key id='" + std::string(1, static_cast<char>('A' + zone)) + "'><Function><Down><MidiNoteOn" + event +
               "</Down><Up><MidiNoteOff" + event + "</Up></Function></Key>";
    }

    /// 64 layers, 16 zones and a held note in each zone, which all layers take.
    void showBars()
    {
        gui->showScreen(Screen::zones, true);
        gui->showScreen(Screen::layers, true);
        std::string keys, layers;
        for (int zone = 0; zone < ZONES; ++zone) keys += noteKey(zone);
        for (int layer = 0; layer < LAYERS; ++layer)
            layers += "<Layer channel='" + std::to_string(layer % 16) + "' output='0'/>";
        auto& commands = orv->getOrvMessageManager();
        commands.postLoadProgramFromString("<Bank><Program name='Bars'><ComputerInput>" + keys +
                                               "</ComputerInput><Zones/><Layers>" + layers +
                                               "</Layers></Program></Bank>",
                                           0);
        std::int32_t pulse = OrvIF::FIRST_PULSE;
        const auto playUntil = [&](auto&& isDone) {
            for (const auto end = Clock::now() + PATIENCE; !isDone(); ++pulse) {
                if (Clock::now() > end) throw std::runtime_error("the layers are not shown");
                orv->playTimeSlice(pulse, pulse + 1);
                QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
            }
        };
        const auto& zoneList = list("Zones");
        const auto& layerList = list("Layers");
        playUntil([&] { return zoneList.getRowCount() == ZONES && layerList.getRowCount() == LAYERS; });
        for (int zone = 0; zone < ZONES; ++zone)
            commands.postKeyDown(Key::fromXmlString(std::string(1, static_cast<char>('A' + zone))), false);
        playUntil([&] { return layerList.getLitNotes(LAYERS - 1).count() == ZONES; });
    }
    /// An oscillator with a step at every pulse, and a fader and an edit that follow its controller; or 16 of the
    /// fastest oscillators.
    void playOscillators(Screen screen, bool on)
    {
        gui->showScreen(screen, on);
        std::string oscillators, controls;
        const bool followed = screen == Screen::controls;
        for (int number = 1; number <= (followed ? 1 : OSCILLATORS); ++number)
            oscillators += "<Oscillator detail='1' speed='" + std::string(followed ? "480" : "40") +
                           "' midiMessage='Controller Change," + std::to_string(number) + "'/>";
        const std::string event = "<Function midiEvent='Controller Change,1'/></Control>";
        if (followed)
            controls = "<Control cell='0,0' type='vfader' name='MW' size='2'>" + event +
                       "<Control cell='2,0' type='edit'>" + event;
        orv->getOrvMessageManager().postLoadProgramFromString(
            "<Bank><Program name='Runs'><Oscillators>" + oscillators + "</Oscillators><Controls>" + controls +
                "</Controls><Layers><Layer/></Layers></Program></Bank>",
            0);
    }
    void startOscillators()
    {
        orv->getOscMessageManager().postChangePlaying({SelectType::Kind::all}, {OnOffToggle::State::on});
    }
    OrvIF& backend() { return *orv; }
    QAbstractSlider* fader() const
    {
        for (auto* slider : host.widget.findChildren<QAbstractSlider*>())
            if (slider->accessibleName() == "MW") return slider;
        return nullptr;
    }
    void setScale(int percent) { gui->setScale(percent); }
    Gui::Output::BarList& list(const QString& name) const
    {
        for (auto* widget : host.widget.findChildren<QWidget*>())
            if (auto* list = dynamic_cast<Gui::Output::BarList*>(widget);
                list != nullptr && list->accessibleName() == name)
                return *list;
        throw std::runtime_error("no list of " + name.toStdString());
    }

private:
    PrivateFolders folders;
    SilentPlayer player;
    Surroundings host;
    std::unique_ptr<OrvIF> orv;
    std::unique_ptr<Gui::OrvGuiIF> gui;
};

/// Eight notes on four channels, on and then off, and then others.
OrvMidiMessage eventOf(int count)
{
    const int chord = count / 64;
    const auto type = count / 32 % 2 == 0 ? MessageType::noteOn : MessageType::noteOff;
    return OrvMidiMessage({.type = type,
                           .d1 = chord * 37 % 100 + count % 8,
                           .d2 = 100,
                           .channel = count / 8 % 4 + chord % 13,
                           .output = 0});
}

/// A burst every millisecond.
int flood(const WindowHandle& window, int perSecond)
{
    int count = 0;
    const auto start = Clock::now();
    for (auto now = start; now < start + DURATION; now += 1ms) {
        for (const auto due = (now - start) / 1ms * perSecond / 1000; count < due; ++count) {
            const OrvMidiMessage event = eventOf(count);
            window.post(
                {.number = GuiMessage::MIDI_OUTPUT_EVENT, .wparam = event.getWparam(), .lparam = event.getLparam()});
        }
        std::this_thread::sleep_until(now);
    }
    return count;
}

double threadMilliseconds()
{
    timespec used{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &used);
    return static_cast<double>(used.tv_sec) * 1e3 + static_cast<double>(used.tv_nsec) / 1e6;
}

struct Cost {
    double milliseconds;
    double longestGap;  // of a timer that ticks every 5 ms
    int events;
};

Cost measure(const Instrument& instrument, int perSecond)
{
    Cost cost{};
    auto lastTick = Clock::now();
    QTimer ticker;
    QObject::connect(&ticker, &QTimer::timeout, [&] {
        const auto now = Clock::now();
        cost.longestGap = std::max(cost.longestGap, std::chrono::duration<double, std::milli>(now - lastTick).count());
        lastTick = now;
    });
    ticker.start(TICK);
    QTimer::singleShot(DURATION, [] { QApplication::exit(); });  // `quit` would close the window
    std::thread poster([&, window = instrument.window()] { cost.events = flood(window, perSecond); });
    const double before = threadMilliseconds();
    QApplication::exec();
    cost.milliseconds = threadMilliseconds() - before;
    poster.join();
    return cost;
}

/// A slice of a pulse every millisecond; their times in microseconds, sorted.
std::vector<double> playSlices(OrvIF& orv, const std::atomic<bool>& isOver)
{
    std::vector<double> times;
    auto due = Clock::now();
    for (std::int32_t pulse = OrvIF::FIRST_PULSE + 1'000'000; !isOver; ++pulse) {
        std::this_thread::sleep_until(due += 1ms);
        const auto start = Clock::now();
        orv.playTimeSlice(pulse, pulse + 1);
        times.push_back(std::chrono::duration<double, std::micro>(Clock::now() - start).count());
    }
    std::ranges::sort(times);
    return times;
}

void measureOscillators(Instrument& instrument, Screen screen, const char* name)
{
    for (const bool shown : {false, true}) {
        std::atomic<bool> isOver{false};
        std::vector<double> times;
        std::thread player([&] { times = playSlices(instrument.backend(), isOver); });
        const auto pass = [](auto time) {
            QTimer::singleShot(time, [] { QApplication::exit(); });
            QApplication::exec();
        };
        instrument.playOscillators(screen, shown);
        pass(1s);  // until the program is loaded
        instrument.startOscillators();
        int moves = 0;
        if (auto* fader = instrument.fader()) QObject::connect(fader, &QAbstractSlider::valueChanged, [&] { ++moves; });
        const double before = threadMilliseconds();
        pass(FOLLOWED);
        const double busy = threadMilliseconds() - before;
        isOver = true;
        player.join();
        const auto part = [&](double share) {
            return times[static_cast<std::size_t>(share * static_cast<double>(times.size() - 1))];
        };
        std::printf("%s %s slices %.1f us, 99.9 %% within %.1f, longest %.0f; %.1f %% of the window's thread", name,
                    shown ? "shown: " : "hidden:", part(0.5), part(0.999), part(1), busy / (FOLLOWED / 1ms) * 100);
        if (moves > 0) std::printf(", the fader moved %.1f times a second", moves / static_cast<double>(FOLLOWED / 1s));
        std::printf("\n");
    }
}

/// Of all rows, and of those that are seen.
void measureBars(Instrument& instrument)
{
    constexpr int ROUNDS = 100;
    const auto cost = [](auto&& paint) {
        const double before = threadMilliseconds();
        for (int round = 0; round < ROUNDS; ++round) paint();
        return (threadMilliseconds() - before) / ROUNDS;
    };
    instrument.showBars();
    for (const int percent : {100, 200}) {
        instrument.setScale(percent);
        QCoreApplication::processEvents();
        double all = 0, seen = 0;
        for (const char* name : {"Zones", "Layers"}) {
            Gui::Output::BarList& list = instrument.list(name);
            QPixmap picture(list.size());
            all += cost([&] { list.render(&picture); });
            seen += cost([&] { list.repaint(); });
        }
        std::printf("64 layers and 16 zones, 16 notes, %d %%: %.2f ms to paint them all, %.2f ms what is seen\n",
                    percent, all, seen);
    }
}
}  // namespace

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const int perSecond = argc > 1 ? std::max(std::atoi(argv[1]), 1) : 20000;
    OrvFactory::setGuiFactory(&Gui::OrvGuiFactory::createOrvGui);
    Instrument instrument;
    const struct {
        const char* name;
        bool display;
        bool output;
    } ROWS[] = {{"no screen", false, false}, {"output", false, true}, {"display", true, false}, {"both", true, true}};
    for (const auto& [name, display, output] : ROWS) {
        instrument.show(display, output);
        measure(instrument, 1);
        const double idle = measure(instrument, 1).milliseconds;
        const Cost cost = measure(instrument, perSecond);
        std::printf(
            "%-10s %d events a second: %.2f us an event, %.1f %% of the thread (idle %.1f %%), longest gap %.0f ms\n",
            name, perSecond, (cost.milliseconds - idle) * 1e3 / cost.events, cost.milliseconds / (DURATION / 1ms) * 100,
            idle / (DURATION / 1ms) * 100, cost.longestGap);
    }
    measureBars(instrument);
    measureOscillators(instrument, Screen::controls, "a fader that follows an oscillator,");
    measureOscillators(instrument, Screen::oscillators, "16 fast oscillators,");
}
