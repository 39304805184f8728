#include "host/performance/PerformanceFile.h"

#include <gtest/gtest.h>

#include "host/common/WholeFile.h"
#include "host/performance/CommandParser.h"
#include "tests/host/HostTesting.h"

namespace Host
{
namespace
{
using Testing::complaintOf;
using Commands = std::vector<TimedCommand>;

Commands parse(std::string_view text) { return parsePerformance(text, "demo.perf"); }

std::string complaintAbout(std::string_view text)
{
    return complaintOf([&] { parse(text); });
}

/// A command by which tests tell lines apart.
Command mark(int number) { return MidiCommand{number, 0xF8, 0, 0, 0}; }

TEST(PerformanceFile, UnderstandsEachCommand)
{
    const struct {
        std::string text;
        Command command;
    } ROWS[] = {
        {"midi 0 90 3C 64", MidiCommand{0, 0x90, 0, 60, 100}},
        {"midi 127 bF 7 f", MidiCommand{127, 0xB0, 15, 7, 15}},
        {"midi 1 C3 5", MidiCommand{1, 0xC0, 3, 5, 0}},
        {"midi 0 FA", MidiCommand{0, 0xFA, 0, 0, 0}},
        {"midi 0 F2 FF 80", MidiCommand{0, 0xF2, 0, 255, 128}},
        {"play 0 9 -1 144 60 100", PlayCommand{0, 9, -1, 144, 60, 100}},
        {"play -1 -1 127 255 -1 -1", PlayCommand{-1, -1, 127, 255, 0, 0}},
        {"play 127 15 0 128 255 0", PlayCommand{127, 15, 0, 128, 255, 0}},
        {"key down Shift F1", KeyCommand{PressAction::down, {.keyCode = Key::F1, .shift = true}}},
        {"key repeat Numpad +", KeyCommand{PressAction::repeat, {.keyCode = Key::NUMPAD_ADD}}},
        {"key\tup  Left Bracket ", KeyCommand{PressAction::up, {.keyCode = Key::LEFT_BRACKET}}},
        {"function  <MidiNoteOn note=\" # C#4\"/> # C4", FunctionCommand{"<MidiNoteOn note=\" # C#4\"/>"}},
        {"enable input 1 on", EnableCommand{PortDirection::input, 1, true}},
        {"axis 0 X 0", AxisCommand{0, 0, 0}},
        {"axis 1 V 65535", AxisCommand{1, 4, 65535}},
        {"axis 1 R 32768", AxisCommand{1, 5, 32768}},
        {"button 0 0 down", ButtonCommand{0, 0, PressAction::down}},
        {"button 1 35 repeat", ButtonCommand{1, 35, PressAction::repeat}},
        {" \tenable\toutput  0 off \t", EnableCommand{PortDirection::output, 0, false}},
        {"record a take # the first", RecordCommand{"a take"}},
        {"control 0,15 -2147483648", ControlCommand{0, 15, -2147483647 - 1}},
        {"control 32767,0 16383", ControlCommand{32767, 0, 16383}},
    };
    for (const auto& row : ROWS) {
        EXPECT_EQ(parseCommand(row.text, "standard input:1"), row.command) << row.text;
        EXPECT_EQ(parse("2000000000 " + row.text), (Commands{{2000000000, row.command}})) << row.text;
    }
}

TEST(PerformanceFile, RefusesALineItCannotUnderstandNamingIt)
{
    const struct {
        std::string_view line;
        std::string complaint;
    } ROWS[] = {
        {"x midi 0 90", "'x' is not a time in pulses"},
        {"2000000001 midi 0 90", "'2000000001' is too late, the last pulse is 2000000000"},
        {"0", "the command is missing"},
        {"0 Midi 0 90", "unknown command 'Midi'"},
        {"99999999999999999999 midi 0 90", "'99999999999999999999' is too late, the last pulse is 2000000000"},
        {"0 key up Unknown", "there is no key 'Unknown'"},
        {"0 function <NoFunction/>", "there is no function 'NoFunction'"},
        {"0 control 3,-1 64", "ROW,COL is '3,-1', not two numbers from 0 to 32767 with a comma between them"},
        {"0 key", "'down', 'repeat' or 'up' is missing"},
        {"0 key down", "KEY is missing"},
        {"0 key down shift A", "there is no key 'shift A'"},
        {"0 key up Control Shift A", "there is no key 'Control Shift A'"},
        {"0 function", "XML is missing"},
        {"0 function ResetOrv", "the function is no XML element: no root element"},
        {"0 function <ResetOrv>", "the function is no XML element: Start-end tags mismatch"},
        {"0 function <ResetOrv/><ResetOrv/>", "the function is no XML element: more than one root element"},
        {"0 function <Nonsense/>", "there is no function 'Nonsense'"},
        {"0 record", "the stem is missing"},
        {"0 midi", "INPUT is missing"},
        {"0 midi 128 90", "INPUT is '128', not a number from 0 to 127"},
        {"0 midi 0", "the first byte is missing"},
        {"0 midi 0 7F", "the first byte is below 80"},
        {"0 midi 0 0x9", "the first byte is '0x9', not a byte of one or two hexadecimal digits"},
        {"0 midi 0 90 100", "the second byte is '100', not a byte of one or two hexadecimal digits"},
        {"0 midi 1 F8#", "the first byte is 'F8#', not a byte of one or two hexadecimal digits"},
        {"0 midi 1 F8 0 0 \"a # b\" # c", "unexpected '\"a # b\"' at the end"},
        {"0 play 128 0 0 144 60 100", "OUTPUT is '128', not a number from -1 to 127"},
        {"0 play 0 16 0 144 60 100", "CHANNEL is '16', not a number from -1 to 15"},
        {"0 play 0 0 128 144 60 100", "ZONE is '128', not a number from -1 to 127"},
        {"0 play 0 0 0 127 60 100", "STATUS is '127', not a number from 128 to 255"},
        {"0 play 0 0 0 144 256 100", "D1 is '256', not a number from -1 to 255"},
        {"0 play 0 0 0 144 60 -2", "D2 is '-2', not a number from -1 to 255"},
        {"0 play 0 0 0 144 60", "D2 is missing"},
        {"0 enable inputs 0 on", "'inputs' is not 'input' or 'output'"},
        {"0 enable input on", "the port is 'on', not a number from 0 to 127"},
        {"0 enable input 0 true", "'true' is not 'on' or 'off'"},
        {"0 control 3 64", "ROW,COL is '3', not two numbers from 0 to 32767 with a comma between them"},
        {"0 control 3,4,5 64", "ROW,COL is '3,4,5', not two numbers from 0 to 32767 with a comma between them"},
        {"0 control 3,4", "VALUE is missing"},
        {"0 axis 2 X 0", "JOYSTICK is '2', not a number from 0 to 1"},
        {"0 axis 0 x 0", "'x' is not an axis: X, Y, Z, U, V or R"},
        {"0 axis 0", "the axis is missing"},
        {"0 axis 0 X 65536", "VALUE is '65536', not a number from 0 to 65535"},
        {"0 button 0 36 up", "the button is '36', not a number from 0 to 35"},
        {"0 button 0 1 Up", "'Up' is not 'down', 'repeat' or 'up'"},
        {std::string_view("# \0", 3), "the line holds a NUL byte"},
        {"# caf\xE9", "the line is not UTF-8 text"},
        {"# \xF4\x90\x80\x80", "the line is not UTF-8 text"},
        {"0 a\rb\x1B", "unknown command 'a?b?'"},
        {"0 abcdefghijklmnopqrstuvwxyzabcdefghijklm\xC3\xA9nop",
         "unknown command 'abcdefghijklmnopqrstuvwxyzabcdefghijklm...'"},
    };
    for (const auto& row : ROWS)
        EXPECT_EQ(complaintAbout("0 midi 0 F8\r\n\n" + std::string(row.line) + "\n"), "demo.perf:3: " + row.complaint);
    for (const auto& [line, complaint] : {std::pair("record /no/such/take", "'/no/such' is no folder"),
                                          {"load no such.prg", "no such.prg: no such file or directory"},
                                          {"load \x15\x1b.prg", "??.prg: no such file or directory"}})
        EXPECT_EQ(complaintOf([&] { parseCommand(line, "standard input:7"); }),
                  "standard input:7: " + std::string(complaint));
}

TEST(PerformanceFile, TakesEitherLineEndCommentsAndAByteOrderMark)
{
    EXPECT_EQ(parse("\xEF\xBB\xBF# caf\xC3\xA9 \xF0\x9F\x8E\xB9\r\n"
                    "0 midi 1 F8\r\n\n \t\n"
                    "0 midi 2 F8 # a clock\n"
                    "\t# all of it\n"
                    "0 midi 3 F8\t#\"\n"
                    "0 midi 4 F8\r"),
              (Commands{{0, mark(1)}, {0, mark(2)}, {0, mark(3)}, {0, mark(4)}}));
    EXPECT_EQ(parse(""), Commands{});
    EXPECT_EQ(parseCommand(" # nothing\r", "standard input:1"), std::nullopt);
}

TEST(PerformanceFile, SortsByTimeAndKeepsFileOrderWithin)
{
    EXPECT_EQ(parse("9 midi 1 F8\n0 midi 2 F8\n9 midi 3 F8\n0 midi 4 F8"),
              (Commands{{0, mark(2)}, {0, mark(4)}, {9, mark(1)}, {9, mark(3)}}));
}

TEST(PerformanceFile, MergesInputsByTimeThenInTheOrderGiven)
{
    EXPECT_EQ(mergeByTime({{{5, mark(1)}, {7, mark(2)}}, {}, {{0, mark(3)}, {5, mark(4)}}, {{5, mark(5)}}}),
              (Commands{{0, mark(3)}, {5, mark(1)}, {5, mark(4)}, {5, mark(5)}, {7, mark(2)}}));
}

TEST(ReadInput, TellsFilesApartByTheirEnding)
{
    const Testing::TemporaryFolder folder;
    const auto music = Testing::midiFile(0, 240, {{0x7B, 0x95, 60, 100}});
    const Commands expected{{246, MidiCommand{0, 0x90, 5, 60, 100}}};
    for (const char* name : {"a.mid", "b.MID", "c.midi"}) {
        writeWholeFile(folder / name, music);
        EXPECT_EQ(readInput(folder / name), expected) << name;
    }
    writeWholeFile(folder / "d.Perf", "246 midi 0 95 3C 64");
    EXPECT_EQ(readInput(folder / "d.Perf"), expected);
    writeWholeFile(folder / "e.perf", "246 midi");
    EXPECT_EQ(complaintOf([&] { readInput(folder / "e.perf"); }),
              (folder / "e.perf").string() + ":1: INPUT is missing");
    EXPECT_EQ(complaintOf([] { readInput("song.txt"); }),
              "song.txt: neither a performance (.perf) nor a MIDI file (.mid)");
}
}  // namespace
}  // namespace Host
