#include "backend/model/MidiEvent.h"

#include "backend/model/ChannelTranslation.h"
#include "tests/values/ValueTesting.h"

using namespace Backend::MidiInput;
using Backend::MidiEngine::MessageType;
using Backend::MidiEngine::MidiMessage;
using Backend::MidiEngine::OrvMidiMessage;

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

TEST(MidiEvent, HasTheNumbersOfVersion2)
{
    const struct {
        int number;
        const char* text;
    } rows[] = {{1, "Key Pressure"},  {2, "Program Change"},       {3, "Channel Pressure"},
                {4, "Pitch Bend"},    {10, "Controller Change,0"}, {137, "Controller Change,127"},
                {138, "Note On,0"},   {265, "Note On,127"},        {266, "Note Off,0"},
                {393, "Note Off,127"}};
    for (const auto& [number, text] : rows) {
        const auto event = midiEventFromVersion2(number, 1, 16);
        ASSERT_TRUE(event) << number;
        EXPECT_EQ(*event, (MidiEvent{0, 15, MidiMessage(text)})) << number;
    }
    for (const int number : {-1, 0, 5, 9, 394}) EXPECT_FALSE(midiEventFromVersion2(number, 1, 1)) << number;
    EXPECT_EQ(midiEventFromVersion2(4, 0, 0)->getPacked(), 0xFFFFE000u) << "none is all";
}

TEST(ChannelTranslation, KeepsReplacesOrLeavesItToTheLayers)
{
    expectRows<ChannelTranslation>(
        {{" unchanged ", {-2}, "-2"}, {"-2", {-2}, "-2"}, {"default", {-1}, "-1"}, {"", {}, "-1"}, {"9x", {9}, "9"}});
    EXPECT_EQ(ChannelTranslation::fromXmlString("Unchanged"), ChannelTranslation{});

    const auto channelOf = [](int translation) {
        OrvMidiMessage event(MessageType::noteOn, 60, 100, 7, -1, -1, 0, -1);
        ChannelTranslation{translation}.applyTo(event);
        return event.isDefaultChannel() ? -1 - event.getChannel() : event.getChannel();
    };
    EXPECT_EQ(channelOf(-2), 7);
    EXPECT_EQ(channelOf(0), 0);
    EXPECT_EQ(channelOf(15), 15);
    for (const int none : {-1, -3, 16, 4000}) EXPECT_EQ(channelOf(none), -1) << none << ": the channel byte is 0";
}
