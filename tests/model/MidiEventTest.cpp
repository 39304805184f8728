#include "backend/model/MidiEvent.h"

#include "backend/model/ChannelTranslation.h"
#include "tests/stage/TestEvent.h"
#include "tests/values/ValueTesting.h"

using namespace Backend::MidiInput;
using Backend::MidiEngine::MidiMessage;

TEST(MidiEvent, IsKeyedByItsNumberOnlyIfItIsANoteOrAController)
{
    const struct {
        MidiEvent event;
        std::uint32_t packed;
    } rows[] = {{{0, 3, MidiMessage(MessageType::noteOn, 60, 99, 5)}, 0x0003903C},
                {{-1, 15, MidiMessage(MessageType::noteOff, 61, 1)}, 0xFF0F803D},
                {{1, -1, MidiMessage(MessageType::controllerChange, 7, 127)}, 0x01FFB007},
                {{-1, -1, MidiMessage(MessageType::keyPressure, 60, 9)}, 0xFFFFA000},
                {{-1, -1, MidiMessage(MessageType::programChange, 5)}, 0xFFFFC000},
                {{2, 0, MidiMessage(MessageType::pitchBend, 1, 64)}, 0x0200E000},
                {{}, 0xFFFF0000}};
    for (const auto& [event, packed] : rows) EXPECT_EQ(event.getPacked(), packed);
}

TEST(ChannelTranslation, KeepsReplacesOrLeavesItToTheLayers)
{
    expectRows<ChannelTranslation>(
        {{" unchanged ", {-2}, "-2"}, {"-2", {-2}, "-2"}, {"default", {-1}, "-1"}, {"", {}, "-1"}, {"9x", {9}, "9"}});
    EXPECT_EQ(ChannelTranslation::fromXmlString("Unchanged"), ChannelTranslation{});

    const auto channelOf = [](int translation) {
        Backend::MidiEngine::OrvMidiMessage event = noteOn(60).channel(7).input(0);
        ChannelTranslation{translation}.applyTo(event);
        return event.isDefaultChannel() ? -1 - event.getChannel() : event.getChannel();
    };
    for (const auto& [translation, channel] : {std::pair{-2, 7}, {0, 0}, {15, 15}})
        EXPECT_EQ(channelOf(translation), channel);
    for (const int none : {-1, -3, 16, 4000}) EXPECT_EQ(channelOf(none), -1) << none << ": the channel byte is 0";
}
