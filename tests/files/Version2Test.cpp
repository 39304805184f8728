#include "backend/files/version2/Version2Import.h"

#include <gtest/gtest.h>

#include "api/Bank.h"
#include "backend/xml/XmlDocument.h"
#include "tests/stage/PrivateFolders.h"

using namespace Backend;

namespace
{
const std::string HEAD = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n\n";
const std::string PRESET = "data/Brinlow Software/Orvane 3/Computer Input Presets/000 - Default.pst";
const std::string ZONES =
    "\t<Zones merge=\"false\">\n\t\t<Zone id=\"0\" transpose=\"0\"/>\n"
    "\t\t<Zone id=\"1\" transpose=\"0\"/>\n\t</Zones>\n</Program>\n";

/// A user whose default preset binds A and B.
struct OldFiles : PrivateFolders {
    OldFiles()
    {
        write(PRESET, HEAD +
                          "<ComputerInput merge=\"false\">\r\n\t<Key id=\"A\" global=\"true\">\r\n\t\t\t<Function>\r\n"
                          "\t\t\t</Function>\r\n\t</Key>\r\n\t<Key id=\"B\"/>\r\n</ComputerInput>\r\n");
    }
};

/// A section of the program that these lines become, from its start tag to its end tag.
std::string section(const std::string& tag, const std::string& lines)
{
    const std::string program = Version2::convertProgram("test", "P 1 x\n" + lines);
    EXPECT_TRUE(XmlDocument(program, XmlDocument::Source::text).getRoot().hasElement()) << program;
    const auto begin = program.find("\t<" + tag);
    const std::string end = "\t</" + tag + ">\n";
    return program.substr(begin, program.find(end) + end.size() - begin);
}

std::string control(const std::string& line) { return section("Controls", line); }
}  // namespace

TEST(Version2, ABankKeepsItsProgramsWithTheirNames)
{
    OldFiles files;
    EXPECT_EQ(Version2::convertBank("test", ""), HEAD + "<Bank>\n</Bank>\n");
    const std::string bank =
        Version2::convertBank("test",
                              "\r\nProgram 1 Grand_Piano_& 5 0 0 0 0 0 0 0 0 0\r\n\r\n\r\nX what is this\r\n"
                              "K 70 200 100\r\n\r\nP 2 Organ\rP 3");
    const std::string keys =
        "\t<ComputerInput merge=\"false\" preset=\"000 - Default\">\n\t\t<Key id=\"A\" global=\"true\">\n"
        "\t\t\t\t<Function>\n\t\t\t\t</Function>\n\t\t</Key>\n\t\t<Key id=\"B\"/>\n\t</ComputerInput>\n";
    const std::string rest =
        "\" tempo=\"120\" tempoSource=\"-1\">\n" + keys +
        "\t<MidiInput merge=\"false\">\n\t</MidiInput>\n\t<Controls merge=\"false\">\n\t</Controls>\n"
        "\t<Layers merge=\"false\">\n\t</Layers>\n" +
        ZONES;
    EXPECT_EQ(bank, HEAD + "<Bank>\n<Program name=\"Grand Piano &amp;" + rest + "<Program name=\"Organ" + rest +
                        "<Program name=\"" + rest + "</Bank>\n");
    EXPECT_NE(Version2::convertBank("test",
                                    "P 1 Gr\xF6\xDF"
                                    "e\x80\x9F\x81\x01")
                  .find("name=\"Größe€Ÿ\xC2\x81\""),
              std::string::npos);
    EXPECT_NE(Version2::convertProgram("test", "\xEF\xBB\xBFP 1 A").find("name=\"A\""), std::string::npos);
    EXPECT_EQ(Version2::convertBank("test", "P 1 A\nX\nP 2 B\nK\n").find("name=\"B\""), std::string::npos)
        << "the rest of a block belongs to it";
}

TEST(Version2, AKeyTakesThePlaceOfTheDefaultOne)
{
    OldFiles files;
    EXPECT_EQ(
        section("ComputerInput", "Key 665 198 90 0 0 2 3 4\nKey 17 74 127 74 0\nK 66 4 16383 4 8192"),
        "\t<ComputerInput merge=\"false\">\n"
        "\t\t<Key id=\"Control\" global=\"true\">\n"
        "\t\t\t\t<Function keepSending=\"false\">\n"
        "\t\t\t\t\t<Down>\n"
        "\t\t\t\t\t\t<MidiControllerChange zone=\"-1\" output=\"-1\" channel=\"-1\" controller=\"64\" "
        "value=\"127\"/>\n"
        "\t\t\t\t\t</Down>\n"
        "\t\t\t\t\t<Up>\n"
        "\t\t\t\t\t\t<MidiControllerChange zone=\"-1\" output=\"-1\" channel=\"-1\" controller=\"64\" "
        "value=\"0\"/>\n"
        "\t\t\t\t\t</Up>\n"
        "\t\t\t\t</Function>\n"
        "\t\t</Key>\n"
        "\t\t<Key id=\"A\" global=\"true\">\n\t\t\t\t<Function>\n\t\t\t\t</Function>\n\t\t</Key>\n"
        "\t\t<Key id=\"B\" global=\"true\">\n"
        "\t\t\t\t<Function keepSending=\"false\">\n"
        "\t\t\t\t\t<Down>\n\t\t\t\t\t\t<MidiPitchBend zone=\"-1\" output=\"-1\" channel=\"-1\" value=\"16383\"/>\n"
        "\t\t\t\t\t</Down>\n"
        "\t\t\t\t\t<Up>\n\t\t\t\t\t\t<MidiPitchBend zone=\"-1\" output=\"-1\" channel=\"-1\" value=\"8192\"/>\n"
        "\t\t\t\t\t</Up>\n"
        "\t\t\t\t</Function>\n"
        "\t\t</Key>\n"
        "\t\t<Key id=\"Control A\" global=\"true\">\n"
        "\t\t\t\t<Function keepSending=\"false\">\n"
        "\t\t\t\t\t<Down>\n\t\t\t\t\t\t<MidiNoteOn zone=\"3\" output=\"1\" channel=\"2\" note=\"C4\" "
        "velocity=\"90\"/>\n\t\t\t\t\t</Down>\n"
        "\t\t\t\t\t<Up>\n\t\t\t\t\t\t<MidiNoteOff zone=\"3\" output=\"1\" channel=\"2\" note=\"C4\" "
        "velocity=\"100\"/>\n\t\t\t\t\t</Up>\n"
        "\t\t\t\t</Function>\n"
        "\t\t</Key>\n"
        "\t</ComputerInput>\n");
}

TEST(Version2, AnIncomingEventHasAllItsTranslations)
{
    EXPECT_EQ(section("MidiInput", "I 1 0 17 0 2\nI 2 16 198 274 0 1 5\nI 1 0 17 11\nI 0 0 4"),
              "\t<MidiInput merge=\"false\">\n"
              "\t\t<MidiEvent input=\"-1\" channel=\"-1\" midiEvent=\"Pitch Bend\">\n"
              "\t\t\t<Translation condition=\"Off\">\n"
              "\t\t\t\t<Unchanged zone=\"-1\" output=\"-1\" channel=\"-1\" D1=\"D1\" D2=\"D2\"/>\n"
              "\t\t\t</Translation>\n"
              "\t\t</MidiEvent>\n"
              "\t\t<MidiEvent input=\"0\" channel=\"-1\" midiEvent=\"Controller Change,7\">\n"
              "\t\t\t<Translation condition=\"Off\">\n"
              "\t\t\t\t<Unchanged zone=\"-1\" output=\"1\" channel=\"-1\" D1=\"D1\" D2=\"D2\"/>\n"
              "\t\t\t</Translation>\n"
              "\t\t\t<Translation condition=\"Off\">\n"
              "\t\t\t\t<MidiControllerChange zone=\"-1\" output=\"-1\" channel=\"-1\" D1=\"1\" D2=\"D2\"/>\n"
              "\t\t\t</Translation>\n"
              "\t\t</MidiEvent>\n"
              "\t\t<MidiEvent input=\"1\" channel=\"15\" midiEvent=\"Note On,60\">\n"
              "\t\t\t<Translation condition=\"Off\">\n"
              "\t\t\t\t<MidiNoteOff zone=\"4\" output=\"-1\" channel=\"0\" D1=\"8\" D2=\"D2\"/>\n"
              "\t\t\t</Translation>\n"
              "\t\t</MidiEvent>\n"
              "\t</MidiInput>\n");
}

TEST(Version2, AControlHasItsCellItsRangeAndItsEvent)
{
    EXPECT_EQ(control("C 1 2 vfader Main_Vol 100 0 127 -1 1 2 17 0 3\nC 2 1 none _\nC 2 1 label \"Hi\""),
              "\t<Controls merge=\"false\">\n"
              "\t\t<Control cell=\"0,1\" type=\"vfader\" name=\"Main Vol\" value=\"100\" min=\"0\" max=\"127\" "
              "release=\"-1\" autoSend=\"true\" size=\"2\">\n"
              "\t\t\t<Function midiEvent=\"Controller Change,7\" output=\"-1\" channel=\"2\" zone=\"-1\"/>\n"
              "\t\t</Control>\n"
              "\t\t<Control cell=\"1,0\" type=\"label\" name=\"&quot;Hi&quot;\" value=\"0\" min=\"0\" max=\"127\" "
              "release=\"-1\" autoSend=\"false\" size=\"1\">\n"
              "\t\t</Control>\n"
              "\t</Controls>\n");
}

TEST(Version2, ALayerBringsItsArpeggioItsSequenceAndTheTempo)
{
    const PrivateFolders folders;
    folders.write("data/Brinlow Software/Orvane 3/Sequences/037 - Drums 4.seq", "<Sequence>36</Sequence>");
    const std::string lines =
        "L 1 0 2 0 36 59 1 100 2 1 10 +12 3 _ 3 4\nL 0 0 0 1 0 127 0 127 0 0 1 60 0 -5 1 1 updown 240 120 36 2 96 "
        "2\nL\n";
    EXPECT_EQ(section("Layers", lines),
              "\t<Layers merge=\"false\">\n"
              "\t\t<Layer mute=\"true\" mono=\"false\" toggle=\"type2\" useNoteStack=\"false\" minNote=\"C2\" "
              "maxNote=\"B3\" minVelocity=\"1\" maxVelocity=\"100\" zone=\"1\" output=\"0\" channel=\"9\" "
              "transpose=\"+12\" key=\"D-1\" velocity=\"\" compress=\"3_4\">\n"
              "\t\t</Layer>\n"
              "\t\t<Layer mute=\"false\" mono=\"false\" toggle=\"off\" useNoteStack=\"true\" minNote=\"C-1\" "
              "maxNote=\"G9\" minVelocity=\"0\" maxVelocity=\"127\" zone=\"-1\" output=\"-1\" channel=\"0\" "
              "transpose=\"0\" key=\"\" velocity=\"-5\" compress=\"1_1\">\n"
              "\t\t\t<Arpeggio>\n"
              "\t\t\t\t<UpDownArpeggio beat=\"480\" length=\"240\"/>\n"
              "\t\t\t</Arpeggio>\n"
              "\t\t\t<SequenceSetting preset=\"037 - Drums 4\" useNote=\"true\" useVelocity=\"true\" "
              "useLength=\"true\">\n"
              "\t\t\t</SequenceSetting>\n"
              "\t\t</Layer>\n"
              "\t\t<Layer mute=\"false\" mono=\"false\" toggle=\"off\" useNoteStack=\"true\" minNote=\"C-1\" "
              "maxNote=\"G9\" minVelocity=\"0\" maxVelocity=\"127\" zone=\"-1\" output=\"-1\" channel=\"0\" "
              "transpose=\"\" key=\"\" velocity=\"\" compress=\"1_1\">\n"
              "\t\t</Layer>\n"
              "\t</Layers>\n");
    EXPECT_NE(Version2::convertProgram("test", "P 1 x\n" + lines).find("tempo=\"96\" tempoSource=\"1\""),
              std::string::npos);
}

TEST(Version2, ALineThatIsNotUnderstoodIsPassedOverAlone)
{
    const std::string good = "C 1 1 knob A 1\n";
    const std::string kept = control(good);
    for (const std::string line : {"C",
                                   "C 1",
                                   "C 0 1 knob B",
                                   "C 17 1 knob B",
                                   "C 2 2 wheel B",
                                   "C 2 2 knob B x",
                                   "C 2 2 knob B 99999999999",
                                   "C 2 2 knob B 1 0 127 -1 2",
                                   "C 2 2 knob B 1 0 127 -1 1 1 5",
                                   "C 2 2 knob B 1 0 127 -1 1 1 4 0 0 0 more",
                                   "C 2 2 knob B 1 0 127 -1 1 1 9",
                                   "C 2 2 knob B 1.5",
                                   "K 66 200 128",
                                   "K 66",
                                   "K 66 5 1",
                                   "K 5000 200 100",
                                   "K 3 200 100",
                                   "I 1 1",
                                   "I 1 17 4",
                                   "L 2",
                                   "L 0 0 0 1 0 128",
                                   "L 0 0 0 1 0 127 0 127 0 0 1 +",
                                   "L 0 0 0 1 0 127 0 127 0 0 1 1 0 _ 1 1 sideways"}) {
        EXPECT_EQ(control(line + "\n\n" + good), kept) << line;
        EXPECT_EQ(section("Layers", line), "\t<Layers merge=\"false\">\n\t</Layers>\n") << line;
        EXPECT_EQ(section("MidiInput", "K 66\n" + line), "\t<MidiInput merge=\"false\">\n\t</MidiInput>\n") << line;
        EXPECT_NE(section("ComputerInput", line).find("preset=\"000 - Default\""), std::string::npos) << line;
    }
}

TEST(Version2, APresetIsOneSection)
{
    OldFiles files;
    const auto element = [](const std::string& text) {
        const auto preset = Version2::convertPreset("test", text);
        return preset ? std::string(preset->section.folder) + ": " + preset->element : "none";
    };
    EXPECT_EQ(element("SELECTED\nkey 3\nK 70 2 5\n"),
              "Computer Input Presets: <ComputerInput merge=\"true\">\n\t<Key id=\"F\" global=\"true\">\n"
              "\t\t\t<Function keepSending=\"false\">\n\t\t\t\t<Down>\n"
              "\t\t\t\t\t<ProgramChange zone=\"-1\" output=\"-1\" channel=\"-1\" program=\"5\"/>\n"
              "\t\t\t\t</Down>\n\t\t\t</Function>\n\t</Key>\n</ComputerInput>\n")
        << "the selected keys alone";
    EXPECT_EQ(
        element("anything\nkey\n"),
        "Computer Input Presets: <ComputerInput merge=\"false\">\n\t<Key id=\"A\" global=\"true\">\n\t\t\t<Function>\n"
        "\t\t\t</Function>\n\t</Key>\n\t<Key id=\"B\"/>\n</ComputerInput>\n");
    EXPECT_EQ(element("\r\nmidiin\r\nX\r\n"), "Midi Input Presets: <MidiInput merge=\"false\">\n</MidiInput>\n");
    EXPECT_EQ(element("key\ncontrol"), "Control Presets: <Controls merge=\"false\">\n</Controls>\n");
    EXPECT_EQ(element("SELECTED\nlayer\n\nL\n").substr(0, 42), "Layer Presets: <Layers merge=\"true\">\n\t<Lay");
    for (const std::string text : {"", "SELECTED", "joystick\n", "key\n", "\nx key\n", "P 1 x\n"})
        EXPECT_EQ(element(text), "none");
}

TEST(Version2, TheSourceIsLeftAloneAndTheTargetWrittenWholeOrNot)
{
    OldFiles files;
    const std::string source = (files / "old.bnk").string();
    const std::string target = (files / "new.bnk").string();
    files.write("old.bnk", "P 1 A\n\nP 2 B\n");
    EXPECT_TRUE(Version2::importBank(source, target));
    EXPECT_EQ(Bank::fromFile(target).programNames, (std::vector<std::string>{"A", "B"}));
    EXPECT_EQ(files.read("old.bnk"), "P 1 A\n\nP 2 B\n");
    EXPECT_TRUE(Version2::importProgram(source, target));
    EXPECT_EQ(Bank::fromFile(target).programNames, std::vector<std::string>{"A"}) << "the first one";
    const std::string before = files.read("new.bnk");
    EXPECT_FALSE(Version2::importBank((files / "none").string(), target));
    EXPECT_FALSE(Version2::importBank(source, (files / "." / "old.bnk").string())) << "itself";
    EXPECT_EQ(files.read("old.bnk"), "P 1 A\n\nP 2 B\n");
    for (const char* text : {"<?xml version=\"1.0\"?>\n\n<Bank>\n</Bank>\n", "K 66 200\n\nP 1 A\n", "P 1\n",
                             "Please read this letter\n"}) {
        files.write("other", text);
        EXPECT_FALSE(Version2::importBank((files / "other").string(), target)) << text;
        EXPECT_FALSE(Version2::importProgram((files / "other").string(), target)) << text;
    }
    files.write("other", "\n\n");
    EXPECT_FALSE(Version2::importProgram((files / "other").string(), target)) << "no program";
    EXPECT_FALSE(Version2::importBank(source, (files / "no/folder").string()));
    EXPECT_EQ(Version2::readPreset(files.string()), std::nullopt) << "a folder";
    EXPECT_EQ(files.read("new.bnk"), before);
}
