#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <optional>

#include "host/clock/Clock.h"
#include "host/clock/ClockPorts.h"
#include "host/midi/StatusByte.h"
#include "tests/host/HostTesting.h"
#include "tests/stage/Allocations.h"
#include "tests/stage/TestEvent.h"

namespace Host
{
namespace
{
constexpr std::uint32_t RATE = 48000;
constexpr std::uint32_t PERIOD = 256;
constexpr std::uint32_t ALMOST_WRAPPED = 0xFFFF0000;

const ShortMessage TICK{{StatusByte::TICK}, 1};
const ShortMessage START{{StatusByte::START}, 1};
const ShortMessage CONTINUE{{StatusByte::CONTINUE}, 1};
const ShortMessage STOP{{StatusByte::STOP}, 1};

struct Sent {
    ShortMessage message;
    std::uint32_t frame;
};

/// A graph in which the host's clock plays, with an input for a MIDI clock and an output that one is sent to.
struct Graph {
    Ports ports;
    Event requests;
    Player player{ports, requests};
    InputPort& in = *ports.addInput("In");
    OutputPort& out = *ports.addOutput("Out");
    std::int32_t pulses = 0;
    std::function<void()> inSlice = [] {};
    Slices slices{[this](std::int32_t from, std::int32_t to) {
                      pulses += to - from;
                      inSlice();
                  },
                  [] {}};
    Clock clock{slices, player, [] {}};
    std::uint32_t start = ALMOST_WRAPPED;
    std::uint32_t frame = 0;
    std::vector<Sent> sent;

    explicit Graph(const ClockPorts& links = {.in = -1, .out = 0})
    {
        player.setClockIn(links.in);
        player.setClockOut(links.out);
        clock.setClockOut(&out);
        out.open();
        clock.startInGraph(RATE);
    }

    /// Plays for that long, while the messages arrive at their frames.
    void play(double seconds, const std::vector<Sent>& arriving = {})
    {
        const auto end = frame + static_cast<std::uint32_t>(seconds * RATE);
        for (auto next = arriving.begin(); frame < end; frame += PERIOD) {
            for (; next != arriving.end() && next->frame < frame + PERIOD; ++next) receive(*next);
            Transport now = transport.value_or(Transport());
            now.seconds += (frame - transportBegan) / double{RATE};
            now.beats = now.seconds * now.bpm / 60;
            clock.playPeriod(start + frame, PERIOD, transport ? &now : nullptr);
            deliver();
        }
    }

    /// The same with a clock at the input, whose ticks come after a message.
    void follow(double bpm, double seconds, std::vector<Sent> arriving = {})
    {
        for (double at = 0; at < seconds * RATE; at += RATE * 60 / bpm / 24)
            arriving.push_back({TICK, frame + static_cast<std::uint32_t>(at)});
        play(seconds, arriving);
    }

    void setTransport(const Transport& newTransport)
    {
        transport = newTransport;
        transportBegan = frame;
    }

    void receive(const Sent& sentMessage) { clock.receiveInGraph(0, sentMessage.message, start + sentMessage.frame); }

    void deliver()
    {
        out.deliver(0, [&](const ShortMessage& message, std::uint32_t stamp) {
            sent.push_back({message, stamp - start});
            return true;
        });
    }

    /// The messages sent since the last call, with the number of ticks between them: "start 96 stop at 5 continue 12 ".
    std::string song()
    {
        static const std::map<int, std::string> NAMES{
            {0xFA, "start "}, {0xFB, "continue "}, {0xFC, "stop "}, {0xF2, "at "}};
        std::string text;
        int ticks = 0;
        sent.push_back({{}, frame});  // after the last ticks
        for (const auto& [message, at] : std::exchange(sent, {})) {
            if (message == TICK) {
                ++ticks;
                continue;
            }
            if (ticks > 0) text += std::to_string(std::exchange(ticks, 0)) + " ";
            if (message.size > 0) text += NAMES.at(message.bytes[0]);
            if (message.size > 1) text += std::to_string(message.bytes[1] + 128 * message.bytes[2]) + " ";
        }
        return text;
    }

    std::vector<std::uint32_t> tickFrames() const
    {
        std::vector<std::uint32_t> frames;
        for (const auto& [message, at] : sent)
            if (message == TICK) frames.push_back(at);
        return frames;
    }

    std::optional<Transport> transport;
    std::uint32_t transportBegan = 0;
};

}  // namespace

TEST(ClockSender, SendsAStartThenTicksAtTheirFramesAndAStopAtTheEnd)
{
    Graph graph;
    graph.play(2);
    graph.clock.stop();
    graph.deliver();
    const auto frames = graph.tickFrames();
    EXPECT_EQ(graph.song(), "start 96 stop ");
    for (std::size_t tick = 0; tick < frames.size(); ++tick) ASSERT_EQ(frames[tick], 1000 * tick);
}

TEST(ClockSender, TheOutputAndTheTransportCanBeChosenWhileItPlays)
{
    Graph graph;
    graph.clock.setClockOut(nullptr);
    graph.play(1);
    EXPECT_EQ(graph.song(), "");
    graph.clock.setClockOut(&graph.out);
    graph.play(1);
    EXPECT_EQ(graph.song(), "start 49 ");
    graph.setTransport({});
    graph.play(1);
    EXPECT_EQ(graph.song(), "stop 48 ");
    graph.transport.reset();
    graph.play(1);
    EXPECT_EQ(graph.song(), "start 49 ");
    graph.clock.setClockOut(nullptr);
    graph.play(1);
    EXPECT_EQ(graph.song(), "stop ");
}

TEST(ClockSender, ATickComesBeforeTheNotesOfItsPulse)
{
    Graph graph;
    graph.inSlice = [&] {
        if (graph.pulses == 21) graph.player.playMidi(noteOn(60).output(0).channel(0));
    };
    graph.play(0.03);
    ASSERT_EQ(graph.sent.size(), 4u);
    EXPECT_EQ(graph.sent[2].message, TICK);
    EXPECT_EQ(graph.sent[3].message, Testing::on(60));
    EXPECT_EQ(graph.sent[2].frame, graph.sent[3].frame);
}

TEST(ClockSender, LeavesRoomForNotesInAPortThatIsNotDelivered)
{
    OutputPort port("Slow");
    ClockSender clock;
    port.carryClock();
    clock.setPort(&port, 0);
    port.open();
    for (int pulse = 0; pulse < 1'000'000; ++pulse) clock.passPulse(pulse, 0, 0);
    for (int note = 0; note < 1000; ++note) port.play(Testing::on(note % 128), 0);
    EXPECT_EQ(port.lossCount(), 0u);
    int notes = 0;
    port.deliver(0, [&](const ShortMessage& message, std::uint32_t) { return notes += message.startsNote(), true; });
    EXPECT_EQ(notes, 1000);
}

TEST(TempoController, FollowsTheInputOfTheProgramOrElseThatOfTheOption)
{
    for (const bool byProgram : {true, false}) {
        Graph graph({.in = byProgram ? -1 : 0, .out = 0});
        if (byProgram) graph.player.setTempoSource(0);
        graph.follow(150, 8);
        const std::int32_t before = graph.pulses;
        graph.follow(150, 8);
        EXPECT_NEAR(graph.pulses - before, 8 * 1200, 3);
        EXPECT_EQ(graph.player.takeExternalTempo(), 150);
        graph.play(2);
        EXPECT_NEAR(graph.pulses - before, 10 * 1200, 25) << "the clock has stopped, its tempo remains";
        graph.player.setTempo(60);
        graph.play(2);
        EXPECT_NEAR(graph.pulses - before, 10 * 1200 + 960, 25) << "until the program gets another";
        if (!byProgram) continue;
        graph.player.setTempoSource(-1);
        graph.play(1);
        graph.follow(150, 2);
        EXPECT_NEAR(graph.pulses - before, 10 * 1200 + 5 * 480, 25) << "the input is not followed any more";
    }
}

TEST(TempoController, AResetHasNoEffect)
{
    Graph graph;
    graph.player.setTempoSource(0);
    graph.follow(200, 4);
    const std::int32_t before = graph.pulses;
    for (int round = 0; round < 20; ++round) {
        graph.player.setTempoSource(-1);
        graph.follow(200, 0.03);
        graph.player.setTempoSource(0);
        graph.follow(200, 0.24);
    }
    EXPECT_NEAR(graph.pulses - before, graph.frame / 48000.0 * 1600 - 6400, 40);
}

TEST(TempoController, ForwardsTheExternalClockTickByTick)
{
    Graph graph({.in = 0, .out = 0});
    graph.follow(130, 1.99);
    graph.sent.clear();
    graph.follow(130, 4, {{START, graph.frame}});
    const auto beforeStop = graph.song();
    EXPECT_TRUE(beforeStop.ends_with("start 208 ")) << beforeStop;
    graph.play(0.3, {{STOP, graph.frame}, {{{StatusByte::SONG_POSITION, 5, 1}, 3}, graph.frame}});
    const std::uint32_t began = graph.frame;
    graph.follow(170, 10, {{CONTINUE, began}});
    const auto frames = graph.tickFrames();
    for (std::size_t tick = 0; tick < 24; ++tick) {
        const double masters = began + (679.0 - static_cast<double>(tick)) * RATE * 60 / 170 / 24;
        EXPECT_NEAR(frames[frames.size() - 1 - tick], masters, 48) << "a millisecond, tick " << tick;
    }
    const auto song = graph.song();
    EXPECT_TRUE(song.starts_with("stop at 133 ")) << song;
    EXPECT_TRUE(song.ends_with(" continue 680 ")) << song;
}

TEST(TempoController, AForwardedStartIsNotSentASecondTimeByTheLayers)
{
    Graph graph({.in = 0, .out = 0});
    const TestEvent start = TestEvent{Backend::MidiEngine::MessageType::startSong, 0}.output(0).channel(0);
    graph.player.playMidi(start.input(0));  // from the external clock
    graph.player.playMidi(start);           // from a key
    graph.player.playMidi(noteOn(60).output(0).channel(0).input(0));
    graph.deliver();
    ASSERT_EQ(graph.sent.size(), 2u);
    EXPECT_EQ(graph.sent[0].message, START);
}

TEST(TempoController, FollowsAClockWithoutAGraphToo)
{
    Graph graph({.in = 0, .out = 0});
    graph.clock.stop();
    Player& player = graph.player;
    TempoController controller(player);
    double time = 0;
    double pulses = 0;
    double pulsesBefore = 0;
    for (double nextPulse = 0, nextTick = 0; time < 60; time += 0.001) {
        for (; nextTick <= time; nextTick += 2.5 / 90)
            controller.receive(0, TICK, static_cast<std::uint32_t>(static_cast<std::int64_t>(nextTick * 1e6)));
        controller.process(time, static_cast<std::uint32_t>(static_cast<std::int64_t>(time * 1e6)), 1e6);
        for (; nextPulse <= time; ++pulses) nextPulse += 1 / (8 * controller.passPulse(nextPulse, 0));
        if (time < 30) pulsesBefore = pulses;
    }
    EXPECT_NEAR(pulses - pulsesBefore, 30 * 90 * 8, 2);
}

TEST(Transport, StartsAndStopsTheClockThatIsSent)
{
    Graph graph;
    graph.setTransport({});
    graph.play(0.5);
    EXPECT_EQ(graph.song(), "25 ") << "half a second, in whole periods";
    graph.setTransport({.rolling = true});
    graph.play(1);
    const auto rolling = graph.song();
    EXPECT_TRUE(rolling.starts_with("start ")) << rolling;
    for (const bool rolls : {false, true}) {
        graph.setTransport({.rolling = rolls, .seconds = 10.1});  // a sixteenth is an eighth of a second
        graph.play(1);
    }
    const auto song = graph.song();
    EXPECT_TRUE(song.starts_with("stop ") && song.find("at 81 1 continue") != std::string::npos) << song;
}

TEST(Transport, ATimebaseMasterGivesTempoAndPhase)
{
    Graph graph;
    graph.setTransport({.rolling = true, .bpm = 93.7});
    graph.play(10);
    const auto frames = graph.tickFrames();
    const double step = RATE * 60 / 93.7 / 24;
    for (std::size_t tick = frames.size() - 24; tick < frames.size(); ++tick) {
        const double phase = frames[tick] / step;
        ASSERT_LT(std::abs(phase - std::round(phase)) * step, 48) << "a millisecond, tick " << tick;
    }
    EXPECT_EQ(graph.player.takeExternalTempo(), 94);
}

TEST(Clock, APeriodWithBothMidiClocksAllocatesNothing)
{
    Graph graph({.in = 0, .out = 0});
    graph.follow(120, 1, {{START, 0}});
    graph.receive({TICK, graph.frame});
    const auto before = allocationsOfThisThread();
    graph.clock.playPeriod(graph.start + graph.frame, 24000);
    EXPECT_EQ(allocationsOfThisThread(), before);
}
}  // namespace Host
