#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <thread>
#include <vector>

#include "host/player/Player.h"
#include "host/ports/Ports.h"
#include "tests/host/HostTesting.h"
#include "tests/stage/Allocations.h"
#include "tests/stage/TestEvent.h"

namespace Host
{
namespace
{
using Testing::controller;
using Testing::off;
using Testing::on;
using Messages = std::vector<ShortMessage>;

/// A port with a device, which takes `capacity` messages at a time.
struct Device {
    OutputPort port{"Out"};
    Messages received;
    std::size_t capacity = ~std::size_t{0};

    Device() { port.open(); }
    void play(const Messages& messages)
    {
        for (const ShortMessage& message : messages) port.play(message, 0);
    }
    void receive()
    {
        std::size_t taken = 0;
        port.deliver(0, [&](const ShortMessage& message, std::uint32_t) {
            if (taken == capacity) return false;
            ++taken;
            received.push_back(message);
            return true;
        });
    }
    /// What it receives from now on.
    Messages receiveAnew()
    {
        received.clear();
        receive();
        return received;
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
}  // namespace

TEST(OutputPort, SendsTheMissingNoteOffsBeforeItCloses)
{
    Device device;
    const Messages played{
        on(60), on(64), on(67), off(60), Testing::shortMessage(0x90, 67, 0), on(64, 15), controller(64, 127)};
    device.play(played);
    device.receive();
    EXPECT_EQ(device.received, played);

    device.port.close();
    device.play({on(72)});
    EXPECT_EQ(device.receiveAnew(), (Messages{off(64), off(64, 15), controller(64, 0)}));
    EXPECT_FALSE(device.port.isClosing());
    EXPECT_EQ(device.receiveAnew(), Messages{});
    device.port.open();
    EXPECT_EQ(device.receiveAnew(), Messages{}) << "messages played while it was closed are dropped";
}

TEST(OutputPort, ASlowDeviceGetsEveryNoteOff)
{
    Device device;
    device.capacity = 1;
    device.play({on(60), on(64), on(67)});
    device.receive();
    device.port.close();
    for (int turn = 0; turn < 5; ++turn) {
        EXPECT_TRUE(device.port.isClosing());
        device.receive();
    }
    EXPECT_FALSE(device.port.isClosing());
    EXPECT_EQ(device.received, (Messages{on(60), on(64), on(67), off(60), off(64), off(67)}));
}

TEST(OutputPort, ADevicePluggedInAgainGetsTheNoteOffsThatItMayHaveMissed)
{
    Device device;
    device.play({on(60), on(62), off(62), controller(64, 127), controller(64, 0)});
    device.receive();
    device.play({on(64)});  // waits
    device.port.close();
    device.port.unplug();
    EXPECT_EQ(device.port.soundingNotes(), 2);
    EXPECT_EQ(device.receiveAnew(), (Messages{off(60), off(62), controller(64, 0)}));
    EXPECT_FALSE(device.port.isClosing());
}

TEST(OutputPort, AReceiverConnectedAgainGetsTheNoteOffsThatItMissedTwice)
{
    Device device;
    device.play({on(60), on(62), on(64), off(64)});
    device.receive();
    device.port.receiverDisconnected();
    device.receive();
    device.play({off(60), on(66), off(66), on(64)});
    device.receive();
    device.port.receiverConnected();
    device.play({off(62)});
    EXPECT_EQ(device.receiveAnew(), (Messages{off(60), off(62)})) << "62 and 64 still sound";
    device.port.receiverReady();
    EXPECT_EQ(device.receiveAnew(), Messages{off(60)}) << "a second time";
    device.port.receiverReady();
    EXPECT_EQ(device.receiveAnew(), Messages{}) << "once";
}

TEST(OutputPort, SendsTheRecentNoteOffsAgainAfterAMissedPeriod)
{
    Device device;
    device.play({on(60), on(62), off(60), off(62), on(62)});
    device.receive();
    device.port.periodMissed();
    device.capacity = 0;
    EXPECT_EQ(device.receiveAnew(), Messages{});
    device.capacity = 10;
    device.receive();
    device.receive();
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
    Device device;
    device.play({on(60)});
    device.receive();
    device.play(Messages(3 * MidiRing::ROOM, controller(1, 5)));
    EXPECT_GT(device.port.lossCount(), MidiRing::ROOM);
    device.play(Messages(MidiRing::ROOM, off(61)));  // more than the ring can hold
    device.play({off(60), on(62)});
    device.receive();
    EXPECT_TRUE(device.sounding().none());
    EXPECT_EQ(std::ranges::count(device.received, on(62)), 0) << "no message overtakes a note-off";
    device.play({on(65)});
    EXPECT_EQ(device.receiveAnew(), Messages{on(65)}) << "after an overload it plays on";
}

TEST(OutputPort, NoNoteIsLeftSoundingUnderOverload)
{
    Device device;
    std::atomic<bool> done{false};
    std::thread listener([&] {
        while (!done.load()) device.receive();
        device.receive();
    });
    std::mt19937 random(1);
    for (int burst = 0; burst < 40; ++burst) {
        for (int count = 0; count < 3000; ++count)
            device.port.play(on(static_cast<int>(random() % 128), static_cast<int>(random() % 16)), 0);
        for (int channel = 0; channel < CHANNELS; ++channel)
            for (int note = 0; note < NOTES; ++note) device.port.play(off(note, channel), 0);
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
    const auto before = allocationsOfThisThread();
    for (const int output : {0, -1, 1, 127}) player.playMidi(noteOn(60).output(output).channel(0));
    EXPECT_EQ(allocationsOfThisThread(), before);
    Messages received;
    port.deliver(0, [&](const ShortMessage& message, std::uint32_t) { return received.push_back(message), true; });
    EXPECT_EQ(received, Messages{on(60)});
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
