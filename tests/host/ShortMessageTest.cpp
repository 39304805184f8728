#include "host/midi/ShortMessage.h"

#include <gtest/gtest.h>

#include <vector>

namespace Host
{
using Backend::MidiEngine::MessageType;
using Backend::MidiEngine::OrvMidiMessage;
using Bytes = std::vector<std::uint8_t>;

namespace
{
Bytes bytesOf(const std::optional<ShortMessage>& message)
{
    return message ? Bytes(message->bytes.begin(), message->bytes.begin() + message->size) : Bytes();
}

Bytes sent(int status, int d1, int d2, int channel)
{
    return bytesOf(toShortMessage({static_cast<MessageType>(status), d1, d2, channel, 0, -1, -1, -1}));
}
}  // namespace

TEST(ShortMessage, HasAsManyBytesAsItsStatusRequires)
{
    EXPECT_EQ(sent(0x90, 60, 100, 2), (Bytes{0x92, 60, 100}));
    EXPECT_EQ(sent(0xC0, 5, 99, 15), (Bytes{0xCF, 5}));
    EXPECT_EQ(sent(0xD0, 5, 200, 0), (Bytes{0xD0, 5})) << "the third byte is not part of the message";
    EXPECT_EQ(sent(0xF2, 1, 2, 3), (Bytes{0xF2, 1, 2})) << "a song position has no channel";
    EXPECT_EQ(sent(0xF3, 7, 0, 0), (Bytes{0xF3, 7}));
    EXPECT_EQ(sent(0xFF, 0, 0, 0), (Bytes{0xFF}));
}

TEST(ShortMessage, InvalidMidiIsNotSent)
{
    EXPECT_EQ(sent(0x90, 128, 100, 0), Bytes());
    EXPECT_EQ(sent(0x80, 60, 255, 0), Bytes());
    EXPECT_EQ(sent(0xF0, 0, 0, 0), Bytes()) << "a system exclusive without a body";
    EXPECT_EQ(sent(0xF4, 0, 0, 0), Bytes());
    EXPECT_EQ(sent(0x00, 60, 60, 0), Bytes());
}

TEST(ShortMessage, ReadsExactlyOneCompleteMessage)
{
    const Bytes whole[] = {{0x92, 60, 0}, {0xC1, 5}, {0xE0, 0, 64}, {0xF1, 3}, {0xF2, 1, 2}, {0xFA}, {0xFF}};
    for (const Bytes& bytes : whole) EXPECT_EQ(bytesOf(readShortMessage(bytes)), bytes);
    const Bytes none[] = {{},           {60, 100},          {0x90, 60}, {0x90, 60, 100, 1}, {0x90, 128, 1},
                          {0xF0, 1, 2}, {0xF0, 1, 2, 0xF7}, {0xF7},     {0xC0, 1, 2}};
    for (const Bytes& bytes : none) EXPECT_FALSE(readShortMessage(bytes));
}

TEST(ShortMessage, ArrivesWithItsChannelUnlessItIsASystemMessage)
{
    const OrvMidiMessage note = toInputEvent({{0x93, 60, 100}, 3}, 5);
    EXPECT_EQ(note.getStatus(), MessageType::noteOn);
    EXPECT_EQ(note.getChannel(), 3);
    EXPECT_FALSE(note.isDefaultChannel());
    EXPECT_EQ(note.getInput(), 5);
    EXPECT_EQ(note.getOutput(), -1);
    EXPECT_EQ(note.getZone(), -1);
    EXPECT_FALSE(note.isTimedEvent());
    const OrvMidiMessage start = toInputEvent({{0xFA}, 1}, 0);
    EXPECT_EQ(start.getStatus(), MessageType::startSong);
    EXPECT_EQ(start.getChannel(), 0);
}

TEST(ShortMessage, TicksAndActiveSensingStayInTheHost)
{
    EXPECT_TRUE(staysInHost({{0xF8}, 1}));
    EXPECT_TRUE(staysInHost({{0xFE}, 1}));
    for (const std::uint8_t status : Bytes{0xFA, 0xFB, 0xFC, 0xF2}) EXPECT_FALSE(staysInHost({{status}, 1}));
}
}  // namespace Host
