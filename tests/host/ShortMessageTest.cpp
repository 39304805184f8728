#include <gtest/gtest.h>

#include "tests/host/HostTesting.h"

namespace Host
{
namespace
{
using Backend::MidiEngine::MessageType;
using Testing::Bytes;

Bytes bytesOf(const std::optional<ShortMessage>& message)
{
    return message ? Bytes(message->bytes.begin(), message->bytes.begin() + message->size) : Bytes();
}
}  // namespace

TEST(ShortMessage, HasAsManyBytesAsItsStatusRequires)
{
    const struct {
        int status, d1, d2, channel;
        Bytes bytes;
    } ROWS[] = {{0x90, 60, 100, 2, {0x92, 60, 100}},
                {0xC0, 5, 99, 15, {0xCF, 5}},
                {0xD0, 5, 200, 0, {0xD0, 5}},   // the third byte is not part of the message
                {0xF2, 1, 2, 3, {0xF2, 1, 2}},  // a song position has no channel
                {0xF3, 7, 0, 0, {0xF3, 7}},
                {0xF5, 7, 0, 0, {0xF5, 7}},
                {0xFF, 0, 0, 0, {0xFF}},
                {0x90, 128, 100, 0, {}},
                {0x80, 60, 255, 0, {}},
                {0xF0, 0, 0, 0, {}},  // a system exclusive without a body
                {0xF4, 0, 0, 0, {}},
                {0x00, 60, 60, 0, {}}};
    for (const auto& [status, d1, d2, channel, bytes] : ROWS)
        EXPECT_EQ(
            bytesOf(toShortMessage(Backend::MidiEngine::OrvMidiMessage(
                {.type = static_cast<MessageType>(status), .d1 = d1, .d2 = d2, .channel = channel, .output = 0}))),
            bytes)
            << status;
}

TEST(ShortMessage, ReadsExactlyOneCompleteMessage)
{
    const Bytes whole[] = {{0x92, 60, 0}, {0xC1, 5}, {0xE0, 0, 64}, {0xF1, 3}, {0xF2, 1, 2}, {0xFA}, {0xFF}};
    for (const Bytes& bytes : whole) EXPECT_EQ(bytesOf(readShortMessage(bytes)), bytes);
    const Bytes none[] = {{},           {60, 100},          {0x90, 60}, {0x90, 60, 100, 1}, {0x90, 128, 1},
                          {0xF0, 1, 2}, {0xF0, 1, 2, 0xF7}, {0xF7},     {0xC0, 1, 2}};
    for (const Bytes& bytes : none) EXPECT_FALSE(readShortMessage(bytes));
}

TEST(ShortMessage, ArrivesWithItsInputAndItsChannelUnlessItIsASystemMessage)
{
    const auto note = toInputEvent(Testing::on(60, 3), 5);
    EXPECT_EQ(note.getStatusWithChannel(), 0x93);
    EXPECT_FALSE(note.isDefaultChannel() || note.isTimedEvent());
    EXPECT_EQ(note.getInput(), 5);
    EXPECT_EQ(note.getOutput(), -1);
    EXPECT_EQ(note.getZone(), -1);
    EXPECT_EQ(toInputEvent({{0xFA}, 1}, 0).getChannel(), 0);
}

TEST(ShortMessage, TicksAndActiveSensingStayInTheHost)
{
    for (const int status : {0xF8, 0xFE, 0xFA, 0xFB, 0xFC, 0xF2})
        EXPECT_EQ(staysInHost(Testing::shortMessage(status, 0, 0)), status == 0xF8 || status == 0xFE) << status;
}
}  // namespace Host
