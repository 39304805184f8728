#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <thread>
#include <vector>

#include "backend/values/OrvMidiMessage.h"
#include "host/player/Player.h"
#include "host/ports/Ports.h"
#include "tests/stage/Allocations.h"

namespace Host
{
namespace
{
ShortMessage on(int note, int channel = 0)
{
    return {{static_cast<std::uint8_t>(0x90 | channel), static_cast<std::uint8_t>(note), 100}, 3};
}
ShortMessage off(int note, int channel = 0)
{
    return {{static_cast<std::uint8_t>(0x80 | channel), static_cast<std::uint8_t>(note), 64}, 3};
}
ShortMessage controller(int number, int value)
{
    return {{0xB0, static_cast<std::uint8_t>(number), static_cast<std::uint8_t>(value)}, 3};
}

/// The device of a port; it takes `capacity` messages at a time.
struct Device {
    std::vector<ShortMessage> received;
    std::size_t capacity = ~std::size_t{0};

    void receiveFrom(OutputPort& port)
    {
        std::size_t taken = 0;
        port.deliver(0, [&](const ShortMessage& message, std::uint32_t) {
            if (taken == capacity) return false;
            ++taken;
            received.push_back(message);
            return true;
        });
    }

    NoteSet sounding() const
    {
        NoteSet notes;
        for (const ShortMessage& message : received) {
            if (message.startsNote()) notes.set(noteIndex(message));
            if (message.endsNote()) notes.reset(noteIndex(message));
        }
        return notes;
    }
};

using Messages = std::vector<ShortMessage>;
}  // namespace

TEST(OutputPort, DeliversInOrder)
{
    OutputPort port("Out");
    Device device;
    port.open();
    for (const auto& message : {on(60), controller(7, 100), off(60), on(62), off(62)}) port.play(message, 0);
    device.receiveFrom(port);
    EXPECT_EQ(device.received, (Messages{on(60), controller(7, 100), off(60), on(62), off(62)}));
}

TEST(OutputPort, SendsTheMissingNoteOffsBeforeItCloses)
{
    OutputPort port("Out");
    Device device;
    port.open();
    const ShortMessage onOfVelocityZero{{0x90, 67, 0}, 3};
    for (const auto& message : {on(60), on(64), on(67), off(60), onOfVelocityZero, on(64, 15), controller(64, 127)})
        port.play(message, 0);
    device.receiveFrom(port);
    device.received.clear();

    port.close();
    port.play(on(72), 0);
    device.receiveFrom(port);
    EXPECT_EQ(device.received, (Messages{off(64), off(64, 15), controller(64, 0)}));
    EXPECT_FALSE(port.isClosing());

    device.receiveFrom(port);
    port.open();
    device.receiveFrom(port);
    EXPECT_EQ(device.received.size(), 3u) << "messages played while it was closed are dropped";
}

TEST(OutputPort, ASlowDeviceGetsEveryNoteOff)
{
    OutputPort port("Out");
    Device device;
    device.capacity = 1;
    port.open();
    for (const int note : {60, 64, 67}) port.play(on(note), 0);
    device.receiveFrom(port);
    port.close();
    for (int turn = 0; turn < 5; ++turn) {
        EXPECT_TRUE(port.isClosing());
        device.receiveFrom(port);
    }
    EXPECT_FALSE(port.isClosing());
    EXPECT_EQ(device.received, (Messages{on(60), on(64), on(67), off(60), off(64), off(67)}));
}

TEST(OutputPort, ADevicePluggedInAgainGetsTheNoteOffsThatItMayHaveMissed)
{
    OutputPort port("Out");
    Device device;
    port.open();
    for (const auto& message : {on(60), on(62), off(62), controller(64, 127), controller(64, 0)}) port.play(message, 0);
    device.receiveFrom(port);
    port.play(on(64), 0);  // waits
    port.close();
    port.unplug();
    EXPECT_EQ(port.soundingNotes(), 2);
    device.received.clear();
    device.receiveFrom(port);
    EXPECT_EQ(device.received, (Messages{off(60), off(62), controller(64, 0)}));
    EXPECT_FALSE(port.isClosing());
}

TEST(OutputPort, AReceiverConnectedAgainGetsTheNoteOffsThatItMissedTwice)
{
    OutputPort port("Out");
    Device device;
    port.open();
    for (const int note : {60, 62, 64}) port.play(on(note), 0);
    port.play(off(64), 0);
    device.receiveFrom(port);
    port.receiverDisconnected();
    device.receiveFrom(port);
    for (const auto& message : {off(60), on(66), off(66), on(64)}) port.play(message, 0);
    device.receiveFrom(port);
    device.received.clear();
    port.receiverConnected();
    port.play(off(62), 0);
    device.receiveFrom(port);
    EXPECT_EQ(device.received, (Messages{off(60), off(62)})) << "62 and 64 still sound";
    for (const bool first : {true, false}) {
        device.received.clear();
        port.receiverReady();
        device.receiveFrom(port);
        EXPECT_EQ(device.received, first ? Messages{off(60)} : Messages{}) << "a second time, once";
    }
}

TEST(OutputPort, SendsTheRecentNoteOffsAgainAfterAMissedPeriod)
{
    OutputPort port("Out");
    Device device;
    port.open();
    for (const auto& message : {on(60), on(62), off(60), off(62), on(62)}) port.play(message, 0);
    device.receiveFrom(port);
    port.periodMissed();
    device.received.clear();
    device.capacity = 0;
    device.receiveFrom(port);
    device.capacity = 10;
    device.receiveFrom(port);
    device.receiveFrom(port);
    EXPECT_EQ(device.received, Messages{off(60)});
}

TEST(PendingNoteOffs, ANoteOffIsRecentForHalfASecond)
{
    PendingNoteOffs noteOffs;
    noteOffs.record(off(60));
    for (const std::uint32_t milliseconds : {1000u, 1200u, 1300u, 1550u, 1600u}) {
        noteOffs.beginDelivery(milliseconds);
        if (milliseconds == 1300) noteOffs.record(off(62));
    }
    noteOffs.markLinkBroken();
    EXPECT_EQ(noteOffs.soundingNotes(), 1) << "the first is not recent any more";
}

TEST(OutputPort, AFullRingDropsNoNoteOff)
{
    OutputPort port("Out");
    Device device;
    port.open();
    port.play(on(60), 0);
    device.receiveFrom(port);
    for (std::uint32_t count = 0; count < 3 * MidiRing::ROOM; ++count) port.play(controller(1, 5), 0);
    EXPECT_GT(port.lossCount(), MidiRing::ROOM);
    // More note-offs than the ring can hold
    for (std::uint32_t count = 0; count < MidiRing::ROOM; ++count) port.play(off(61), 0);
    port.play(off(60), 0);
    port.play(on(62), 0);
    device.receiveFrom(port);
    EXPECT_TRUE(device.sounding().none());
    EXPECT_EQ(std::ranges::count(device.received, on(62)), 0) << "no message overtakes a note-off";

    port.play(on(65), 0);
    device.receiveFrom(port);
    EXPECT_EQ(device.received.back(), on(65)) << "after an overload it plays on";
}

TEST(OutputPort, NoNoteIsLeftSoundingUnderOverload)
{
    OutputPort port("Out");
    Device device;
    port.open();
    std::atomic<bool> done{false};
    std::thread listener([&] {
        while (!done.load()) device.receiveFrom(port);
        device.receiveFrom(port);
    });
    std::mt19937 random(1);
    for (int burst = 0; burst < 40; ++burst) {
        for (int count = 0; count < 3000; ++count)
            port.play(on(static_cast<int>(random() % 128), static_cast<int>(random() % 16)), 0);
        for (int channel = 0; channel < CHANNELS; ++channel)
            for (int note = 0; note < NOTES; ++note) port.play(off(note, channel), 0);
    }
    done.store(true);
    listener.join();
    EXPECT_TRUE(device.sounding().none());
}

TEST(Player, PlaysWithoutAllocatingAndIgnoresAnInvalidPort)
{
    Ports ports;
    Event requests;
    OutputPort& port = *ports.addOutput("Out");
    port.open();
    Player player(ports, requests);
    Backend::MidiEngine::OrvMidiMessage note(Backend::MidiEngine::MessageType::noteOn, 60, 100, 0, 0, -1, -1, -1);

    const auto before = allocationsOfThisThread();
    for (const int output : {0, -1, 1, 127}) {
        note.setOutput(output);
        player.playMidi(note);
    }
    EXPECT_EQ(allocationsOfThisThread(), before);
    Device device;
    device.receiveFrom(port);
    EXPECT_EQ(device.received, Messages{on(60)});
}

TEST(Player, StoresRequestsForTheControlThread)
{
    Ports ports;
    Event requests;
    ports.addInput("In");
    OutputPort& output = *ports.addOutput("Out");
    Player player(ports, requests);
    EXPECT_FALSE(player.takeOutputRequest());

    player.enableMidiOutput(0, false);
    EXPECT_FALSE(output.wanted.load());
    EXPECT_TRUE(output.enabled) << "executed by the control thread";
    EXPECT_TRUE(requests.waitFor(std::chrono::milliseconds(0)));
    EXPECT_TRUE(player.takeOutputRequest());
    EXPECT_FALSE(player.takeOutputRequest());
    player.enableMidiOutput(5, true);
    EXPECT_TRUE(player.takeOutputRequest()) << "an invalid port is a request too";
    player.enableMidiInput(0, false);
    EXPECT_FALSE(ports.inputs()[0]->wanted.load());
    player.setTempoSource(3);
    EXPECT_EQ(player.getTempoSource(), 3);
}
}  // namespace Host
