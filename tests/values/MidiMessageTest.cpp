#include "backend/values/MidiMessage.h"

#include <gtest/gtest.h>

#include "backend/values/ControllerNames.h"
#include "backend/values/ProgramNames.h"
#include "tests/stage/TemporaryFolder.h"
#include "tests/stage/TestEvent.h"

using namespace Backend::MidiEngine;

namespace
{
MessageType type(int status) { return static_cast<MessageType>(status); }
}  // namespace

TEST(MidiMessage, KeepsStatusAndChannelApart)
{
    const MidiMessage message(type(0x93), 60, 100, 3);
    EXPECT_EQ(message.getStatus(), MessageType::noteOn);
    EXPECT_EQ(message.getChannel(), 3);
    EXPECT_EQ(message.getStatusWithChannel(), 0x93u);
    EXPECT_EQ(message.getWparam(), 0x03643C90u);
    EXPECT_EQ(MidiMessage(0x03643C93u), message);
    EXPECT_EQ(MidiMessage(type(0x90), 0, 0, 16).getChannel(), 15);
    EXPECT_EQ(MidiMessage(type(0x90), 0, 0, -1).getChannel(), 0);
    EXPECT_EQ(MidiMessage(type(0xF8)).getStatus(), MessageType::timingTick);

    EXPECT_EQ(message.getMidiOutShortMsg(), 0x643C93u);
    MidiMessage strange = message;
    strange.setChannel(20);
    EXPECT_EQ(strange.getMidiOutShortMsg(), 0x643C90u);
}

TEST(MidiMessage, KnowsEveryTypeByNameAndSize)
{
    const struct {
        int status;
        const char* name;
        int size;
    } rows[] = {{0x80, "Note Off", 2},
                {0x90, "Note On", 2},
                {0xA0, "Key Pressure", 2},
                {0xB0, "Controller Change", 2},
                {0xC0, "Program Change", 1},
                {0xD0, "Channel Pressure", 1},
                {0xE0, "Pitch Bend", 2},
                {0xF0, "System Exclusive", 2},
                {0xF2, "Song Position", 2},
                {0xF3, "Song Select", 1},
                {0xF5, "Unofficial Bus Select", 1},
                {0xF6, "Tune Request", 0},
                {0xF7, "End Of Sysex", 0},
                {0xF8, "Timing Tick", 0},
                {0xFA, "Start Song", 0},
                {0xFB, "Continue Song", 0},
                {0xFC, "Stop Song", 0},
                {0xFE, "Active Sensing", 0},
                {0xFF, "System Reset", 0}};
    for (const auto& [status, name, size] : rows) {
        const MidiMessage message(type(status));
        EXPECT_EQ(message.getEventName(), name);
        EXPECT_EQ(message.getMessageSize(), size) << name;
        EXPECT_EQ(message.hasParameters(), size > 0) << name;
        EXPECT_TRUE(message.isValid()) << name;
        EXPECT_EQ(MidiMessage(std::string_view(name)).getStatus(), type(status));
    }
    for (const int status : {0x00, 0x7F, 0xF1, 0xF4, 0xF9, 0xFD}) {
        EXPECT_EQ(MidiMessage(type(status)).getEventName(), "Unknown") << status;
        EXPECT_FALSE(MidiMessage(type(status)).isValid()) << status;
    }
}

TEST(MidiMessage, IsStoredAsAPattern)
{
    constexpr std::pair<std::string_view, const char*> rows[] = {{"Note On,60", "Note On,60"},
                                                                 {"Note Off, 7 ", "Note Off,7"},
                                                                 {"Controller Change,300", "Controller Change,44"},
                                                                 {"Note On", "Note On,0"},
                                                                 {"Note On,x", "Note On,0"},
                                                                 {"Pitch Bend,5", "Pitch Bend"},
                                                                 {"Pitch Bend", "Pitch Bend"},
                                                                 {"note on,60", "Unknown"},
                                                                 {" Note On,60", "Unknown"},
                                                                 {"", "Unknown"}};
    for (const auto& [text, back] : rows) EXPECT_EQ(MidiMessage(text).toXmlString(), back) << text;
    EXPECT_EQ(MidiMessage(Note(61)).toXmlString(), "Note On,61");
    EXPECT_FALSE(MidiMessage(Note(-1)).isValid());
}

TEST(MidiMessage, NamesNotesAndControllersInDetail)
{
    EXPECT_EQ(MidiMessage(type(0x80), 60).getEventNameWithCcAndNoteDetail(), "Note 60 (C4)");
    EXPECT_EQ(MidiMessage(type(0xB0), 7).getEventNameWithCcAndNoteDetail(), "Control Change 7: Channel Volume");
    EXPECT_EQ(MidiMessage(type(0xE0), 7).getEventNameWithCcAndNoteDetail(), "Pitch Bend");
    EXPECT_EQ(getControllerName(6), "Data Entry");
    EXPECT_EQ(getControllerName(38), "Data entry");
    EXPECT_EQ(getControllerName(127), "Poly mode on");
    EXPECT_EQ(getControllerName(128), "");
    EXPECT_EQ(getProgramName(21), "Accoridan");
    EXPECT_EQ(getProgramName(127), "Gunshot");
}

TEST(MidiMessage, OrdersByStatusAndFirstByteAlone)
{
    const MidiMessage soft(type(0x90), 60, 64);
    const MidiMessage loud(type(0x90), 60, 100);
    EXPECT_FALSE(soft < loud || loud < soft);
    EXPECT_FALSE(soft <= loud || loud <= soft) << "stricter than it looks";
    EXPECT_TRUE(soft >= loud && loud >= soft);
    EXPECT_TRUE(soft <= soft);
    EXPECT_TRUE(soft != loud);
    EXPECT_TRUE(MidiMessage(type(0x80), 99) < soft);
    EXPECT_TRUE(MidiMessage(type(0x90), 200) < soft) << "the first byte counts as signed";
}

TEST(MidiMessage, WritesAsManyBytesAsItsTypeHas)
{
    const TemporaryFolder folder;
    std::ofstream file(folder / "bytes", std::ios::binary);
    EXPECT_EQ(MidiMessage(type(0x90), 60, 100, 3).writeBytes(file), 3);
    EXPECT_EQ(MidiMessage(type(0xC0), 5, 9, 1).writeBytes(file), 2);
    EXPECT_EQ(MidiMessage(type(0xF8), 5, 9).writeBytes(file), 1);
    file.close();
    EXPECT_EQ(folder.read("bytes"), "\x93\x3C\x64\xC1\x05\xF8");
}

TEST(OrvMidiMessage, CrossesAThreadInTwoWords)
{
    for (const int zone : {-1, 0, 127})
        for (const int output : {-1, 0, 127})
            for (const int input : {-1, 5})
                for (const int channel : {-1, 0, 15}) {
                    const OrvMidiMessage event =
                        controller(7, 127).channel(channel).output(output).zone(zone).input(input);
                    const OrvMidiMessage back(event.getWparam(), event.getLparam());
                    EXPECT_EQ(back.getMidiMessage(), event.getMidiMessage());
                    EXPECT_EQ(back.getZone(), zone);
                    EXPECT_EQ(back.getOutput(), output);
                    EXPECT_EQ(back.getInput(), input);
                    EXPECT_EQ(back.isDefaultChannel(), channel < 0);
                    EXPECT_FALSE(back.isTimedEvent());
                    EXPECT_EQ(back.getFromControl(), Cell());
                }
}

TEST(OrvMidiMessage, TravelsWholeWhenItIsTimedOrComesFromAControl)
{
    const auto fits = [](const Cell& control) {
        return OrvMidiMessage(MidiMessage(type(0x90), 60, 100), -1, 0, -1, control).fitsParameters();
    };
    EXPECT_TRUE(fits({}) && fits({16, 0}));
    EXPECT_FALSE(fits({0, 0}) || fits({15, 15}));
    EXPECT_FALSE(OrvMidiMessage(noteOn(60).pulse(0)).fitsParameters());
}

TEST(OrvMidiMessage, ANegativeChannelIsTheDefaultOne)
{
    OrvMidiMessage message = event(type(0x95), 60, 100);
    EXPECT_TRUE(message.isDefaultChannel());
    EXPECT_EQ(message.getChannel(), 0);
    message.setChannel(9);
    EXPECT_FALSE(message.isDefaultChannel());
    message.setChannel(-3);
    EXPECT_TRUE(message.isDefaultChannel());
    EXPECT_EQ(message.getChannel(), 0);
    EXPECT_TRUE(message.isDefaultOutput());
    EXPECT_EQ(OrvMidiMessage(MidiMessage(type(0x90)), 2, 20, 3, {}).getChannel(), 20) << "stored as it is";
    EXPECT_FALSE(OrvMidiMessage::createSystemReset(1).isDefaultChannel());
    EXPECT_TRUE(OrvMidiMessage::createAllSoundOffCC(1, 4).getMidiMessage().isAllSoundOff());
}
