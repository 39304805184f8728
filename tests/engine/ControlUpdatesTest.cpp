#include "backend/engine/ControlUpdates.h"

#include "tests/sections/ControlStage.h"

using namespace Backend::Controls;
using Backend::MidiEngine::OrvMidiMessage;

TEST(ControlUpdates, CarryWholeEventsAndFollowOnlyWhatControlsDo)
{
    for (const Cell& cell : {Cell{0, 0}, {15, 15}, {3, 12}, {-1, -1}})
        for (const int channel : {-1, 0, 15})
            for (const int where : {-1, 0, 127}) {
                const MidiMessage bend(MessageType::pitchBend, 127, 1);
                const OrvMidiMessage event(bend, where, channel, 127 - where, cell);
                const OrvMidiMessage read = ControlUpdates::read(ControlUpdates::pack(event));
                EXPECT_EQ(read.getMidiMessage(), event.getMidiMessage());
                EXPECT_EQ(read.getOutput(), where);
                EXPECT_EQ(read.getZone(), event.getZone());
                EXPECT_EQ(read.isDefaultChannel(), channel < 0);
                EXPECT_EQ(read.getFromControl(), cell);
            }
    MessageQueue queue;
    ControlUpdates updates(queue);
    ControlMap map;
    map.put(fader({0, 0}, cc(176)));
    map.put(fader({0, 1}, MidiMessage(MessageType::programChange)));
    const auto follows = [&](MidiMessage event) { return updates.follows({event, -1, -1, -1, {}}); };
    EXPECT_FALSE(follows(cc(176)));
    updates.setFollowed(map);
    EXPECT_TRUE(follows(cc(176)));
    EXPECT_TRUE(follows(MidiMessage(MessageType::programChange, 9)));
    EXPECT_FALSE(follows(cc(192)));
    EXPECT_FALSE(follows(MidiMessage(MessageType::channelPressure)));
}
