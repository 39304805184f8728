#include "backend/files/version2/Version2Import.h"

#include <gtest/gtest.h>

#include "api/Bank.h"
#include "tests/stage/PrivateFolders.h"
#include "tests/stage/Text.h"

using namespace Backend;

namespace
{
const std::string USER_DATA = "data/Brinlow Software/Orvane 3/";

/// A user whose default preset binds A and B, and who has a sequence.
struct OldFiles : PrivateFolders {
    OldFiles()
    {
        write(USER_DATA + "Sequences/037 - Drums 4.seq", "<Sequence>36</Sequence>");
        write(USER_DATA + "Computer Input Presets/000 - Default.pst",
              XML_HEAD +
                  "<ComputerInput merge=\"false\">\r\n\t<Key id=\"A\" global=\"true\">\r\n\t\t\t<Function>\r\n"
                  "\t\t\t</Function>\r\n\t</Key>\r\n\t<Key id=\"B\"/>\r\n</ComputerInput>\r\n");
    }
};
}  // namespace

/// Each bank of version 2 in the folder becomes the bank beside it.
TEST(Version2, ABankKeepsItsProgramsWithAllThatTheyHold)
{
    const OldFiles files;
    int banks = 0;
    for (const auto& file : std::filesystem::directory_iterator(ORVANE_VERSION2)) {
        if (file.path().extension() != ".bnk") continue;
        const std::string expected = fileText(std::filesystem::path(file).replace_extension(".xml"));
        EXPECT_EQ(Version2::convertBank("test", fileText(file)), expected) << file;
        ++banks;
    }
    EXPECT_EQ(banks, 7);
    EXPECT_EQ(Version2::convertBank("test", ""), XML_HEAD + "<Bank>\n</Bank>\n");
    const auto names = [](const std::string& bank) {
        std::string text;
        forEachElement(rootOf(Version2::convertBank("test", bank)),
                       [&](const XmlElement& program) { text += program.getAttribute("name") + "|"; });
        return text;
    };
    EXPECT_EQ(names("P 1 Gr\xF6\xDF"
                    "e\x80\x9F\x81\x01"),
              "Größe€Ÿ\xC2\x81|");
    EXPECT_EQ(names("\xEF\xBB\xBFP 1 A"), "A|");
    EXPECT_EQ(names("P 1 A\nX\nP 2 B\nK\n"), "A|") << "the rest of a block belongs to it";
}

TEST(Version2, APresetIsOneSection)
{
    OldFiles files;
    const auto element = [](const std::string& text) {
        const auto preset = Version2::convertPreset("test", text);
        return preset ? std::string(preset->section.folder) + ": " + preset->element : "none";
    };
    EXPECT_EQ(flat(element("SELECTED\nkey 3\nK 70 2 5\n")),
              "Computer Input Presets: <ComputerInput merge='true'><Key id='F' global='true'>"
              "<Function keepSending='false'><Down><ProgramChange zone='-1' output='-1' channel='-1' program='5'/>"
              "</Down></Function></Key></ComputerInput>")
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
