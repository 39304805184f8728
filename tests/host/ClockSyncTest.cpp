#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "host/clock/Clock.h"
#include "host/clock/ClockPorts.h"
#include "host/midi/StatusByte.h"
#include "tests/stage/Allocations.h"

namespace Host
{
using Backend::MidiEngine::MessageType;
using Backend::MidiEngine::OrvMidiMessage;

namespace
{
constexpr std::uint32_t RATE = 48000;
constexpr std::uint32_t PERIOD = 256;
constexpr std::uint32_t ALMOST_WRAPPED = 0xFFFF0000;
constexpr int FRAMES_PER_TICK = 1000;  // at 120 beats per minute

struct Sent {
    std::string bytes;
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
        if (links.out >= 0) clock.setClockOut(&out);
        out.open();
        clock.startInGraph(RATE);
    }

    /// Plays for that long, while the messages arrive at their frames.
    void play(double seconds, std::vector<Sent> arriving = {}, const Transport* transport = nullptr)
    {
        const auto end = frame + static_cast<std::uint32_t>(seconds * RATE);
        std::size_t next = 0;
        for (; frame < end; frame += PERIOD) {
            for (; next < arriving.size() && arriving[next].frame < frame + PERIOD; ++next) receive(arriving[next]);
            Transport now;
            if (transport != nullptr) {
                now = *transport;
                now.seconds += (frame - transportBegan) / double{RATE};
                now.beats = now.seconds * now.bpm / 60;
            }
            clock.playPeriod(start + frame, PERIOD, transport != nullptr ? &now : nullptr);
            deliver();
        }
    }

    void receive(const Sent& message)
    {
        ShortMessage bytes{{}, static_cast<std::uint8_t>(message.bytes.size())};
        std::ranges::transform(message.bytes, bytes.bytes.begin(),
                               [](char byte) { return static_cast<std::uint8_t>(byte); });
        clock.receiveInGraph(0, bytes, start + message.frame);
    }

    void deliver()
    {
        out.deliver(0, [&](const ShortMessage& message, std::uint32_t stamp) {
            sent.push_back({std::string(message.bytes.begin(), message.bytes.begin() + message.size), stamp - start});
            return true;
        });
    }

    /// The messages that were sent, with the number of ticks between them: "start 96 stop at 5 continue 12".
    std::string song() const
    {
        std::string text;
        int ticks = 0;
        for (const Sent& message : sent) {
            const auto status = static_cast<std::uint8_t>(message.bytes[0]);
            if (status == StatusByte::TICK) {
                ++ticks;
                continue;
            }
            if (ticks > 0) text += std::to_string(std::exchange(ticks, 0)) + " ";
            text += status == StatusByte::START      ? "start "
                    : status == StatusByte::CONTINUE ? "continue "
                    : status == StatusByte::STOP
                        ? "stop "
                        : "at " + std::to_string(message.bytes[1] + 128 * message.bytes[2]) + " ";
        }
        if (ticks > 0) text += std::to_string(ticks) + " ";
        return text.substr(0, text.size() - 1);
    }

    std::vector<std::uint32_t> tickFrames() const
    {
        std::vector<std::uint32_t> frames;
        for (const Sent& message : sent)
            if (static_cast<std::uint8_t>(message.bytes[0]) == StatusByte::TICK) frames.push_back(message.frame);
        return frames;
    }

    std::uint32_t transportBegan = 0;
};

std::string byte(std::uint8_t value) { return std::string(1, static_cast<char>(value)); }

/// Ticks at `bpm` from a frame on, with a first message at the frame of the first tick.
std::vector<Sent> clockOf(double bpm, double seconds, std::uint32_t from, const std::string& first = {})
{
    std::vector<Sent> messages;
    if (!first.empty()) messages.push_back({first, from});
    const double step = RATE * 60 / bpm / 24;
    for (double at = 0; at < seconds * RATE; at += step)
        messages.push_back({byte(StatusByte::TICK), from + static_cast<std::uint32_t>(at)});
    return messages;
}
}  // namespace

TEST(ClockSender, SendsAStartThenTicksAtTheirFramesAndAStopAtTheEnd)
{
    Graph graph;
    graph.play(2);
    graph.clock.stop();
    graph.deliver();
    EXPECT_EQ(graph.song(), "start 96 stop");
    const auto frames = graph.tickFrames();
    for (std::size_t tick = 0; tick < frames.size(); ++tick) ASSERT_EQ(frames[tick], FRAMES_PER_TICK * tick);
}

TEST(ClockSender, ATickComesBeforeTheNotesOfItsPulse)
{
    Graph graph;
    graph.inSlice = [&] {
        if (graph.pulses == 21) graph.player.playMidi({MessageType::noteOn, 60, 100, 0, 0, 0, -1, -1});
    };
    graph.play(0.03);
    ASSERT_EQ(graph.sent.size(), 4u);
    EXPECT_EQ(graph.sent[2].bytes, byte(StatusByte::TICK));
    EXPECT_EQ(graph.sent[3].bytes[0], '\x90');
    EXPECT_EQ(graph.sent[2].frame, graph.sent[3].frame);
}

TEST(ClockSender, LeavesRoomForNotesInAPortThatIsNotDelivered)
{
    OutputPort port("Slow");
    ClockSender clock;
    clock.setPort(&port);
    port.open();
    for (int pulse = 0; pulse < 1'000'000; ++pulse) clock.passPulse(pulse, 0, 0);
    for (int note = 0; note < 1000; ++note) port.play({{0x90, static_cast<std::uint8_t>(note % 128), 1}, 3}, 0);
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
        graph.play(8, clockOf(150, 8, 0));
        const std::int32_t before = graph.pulses;
        graph.play(8, clockOf(150, 8, graph.frame));
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
        graph.play(2, clockOf(150, 2, graph.frame));
        EXPECT_NEAR(graph.pulses - before, 10 * 1200 + 5 * 480, 25) << "the input is not followed any more";
    }
}

TEST(TempoController, AResetHasNoEffect)
{
    Graph graph;
    graph.player.setTempoSource(0);
    graph.play(4, clockOf(200, 4, 0));
    const std::int32_t before = graph.pulses;
    for (int round = 0; round < 20; ++round) {
        graph.player.setTempoSource(-1);
        graph.play(0.03, clockOf(200, 0.03, graph.frame));
        graph.player.setTempoSource(0);
        graph.play(0.24, clockOf(200, 0.24, graph.frame));
    }
    EXPECT_NEAR(graph.pulses - before, graph.frame / 48000.0 * 1600 - 6400, 40);
}

TEST(TempoController, ForwardsTheExternalClockTickByTick)
{
    Graph graph({.in = 0, .out = 0});
    graph.play(2, clockOf(130, 1.99, 0));
    graph.sent.clear();
    graph.play(4, clockOf(130, 4, graph.frame, byte(StatusByte::START)));
    const auto beforeStop = graph.song();
    EXPECT_TRUE(beforeStop.ends_with("start 208")) << beforeStop;
    graph.sent.clear();
    graph.play(0.3, {{byte(StatusByte::STOP), graph.frame}, {std::string("\xF2\x05\x01"), graph.frame}});
    const std::uint32_t began = graph.frame;
    graph.play(10, clockOf(170, 10, began, byte(StatusByte::CONTINUE)));
    const auto song = graph.song();
    EXPECT_TRUE(song.starts_with("stop at 133 ")) << song;
    EXPECT_TRUE(song.ends_with(" continue 680")) << song;
    const auto frames = graph.tickFrames();
    for (std::size_t tick = 0; tick < 24; ++tick) {
        const double masters = began + (679.0 - static_cast<double>(tick)) * RATE * 60 / 170 / 24;
        EXPECT_NEAR(frames[frames.size() - 1 - tick], masters, 48) << "a millisecond, tick " << tick;
    }
}

TEST(TempoController, AForwardedStartIsNotSentASecondTimeByTheLayers)
{
    Graph graph({.in = 0, .out = 0});
    graph.player.playMidi({MessageType::startSong, 0, 0, 0, 0, 0, 0, -1});   // from the external clock
    graph.player.playMidi({MessageType::startSong, 0, 0, 0, 0, 0, -1, -1});  // from a key
    graph.player.playMidi({MessageType::noteOn, 60, 1, 0, 0, 0, 0, -1});
    graph.deliver();
    ASSERT_EQ(graph.sent.size(), 2u);
    EXPECT_EQ(graph.sent[0].bytes, byte(StatusByte::START));
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
            controller.receive(0, {{StatusByte::TICK, 0, 0}, 1},
                               static_cast<std::uint32_t>(static_cast<std::int64_t>(nextTick * 1e6)));
        controller.process(time, static_cast<std::uint32_t>(static_cast<std::int64_t>(time * 1e6)), 1e6);
        for (; nextPulse <= time; ++pulses) nextPulse += 1 / (8 * controller.passPulse(nextPulse, 0));
        if (time < 30) pulsesBefore = pulses;
    }
    EXPECT_NEAR(pulses - pulsesBefore, 30 * 90 * 8, 2);
}

TEST(Transport, StartsAndStopsTheClockThatIsSent)
{
    Graph graph;
    Transport transport;
    graph.play(0.5, {}, &transport);
    EXPECT_EQ(graph.song(), "25") << "half a second, in whole periods";
    transport.rolling = true;
    graph.transportBegan = graph.frame;
    graph.sent.clear();
    graph.play(1, {}, &transport);
    EXPECT_TRUE(graph.song().starts_with("start ")) << graph.song();
    transport = {.rolling = false, .seconds = 10.1};  // a sixteenth is an eighth of a second
    graph.transportBegan = graph.frame;
    graph.sent.clear();
    graph.play(1, {}, &transport);
    transport.rolling = true;
    graph.transportBegan = graph.frame;
    graph.play(1, {}, &transport);
    EXPECT_TRUE(graph.song().starts_with("stop ")) << graph.song();
    EXPECT_NE(graph.song().find("at 81 1 continue"), std::string::npos) << graph.song();
}

TEST(Transport, ATimebaseMasterGivesTempoAndPhase)
{
    Graph graph;
    const Transport transport{.rolling = true, .bpm = 93.7};
    graph.play(10, {}, &transport);
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
    graph.play(1, clockOf(120, 1, 0, byte(StatusByte::START)));
    graph.receive({byte(StatusByte::TICK), graph.frame});
    const auto before = allocationsOfThisThread();
    graph.clock.playPeriod(graph.start + graph.frame, 24000);
    EXPECT_EQ(allocationsOfThisThread(), before);
}
}  // namespace Host
