#include "backend/files/PresetManager.h"

#include <gtest/gtest.h>

#include "api/OrvUtils.h"
#include "backend/files/FileName.h"
#include "tests/stage/FileFault.h"
#include "tests/stage/PrivateFolders.h"
#include "tests/stage/System.h"
#include "tests/stage/Text.h"

using namespace Backend;

namespace
{
const std::string FOLDER = "data/Brinlow Software/Orvane 3/Layer Presets";
const std::string FACTORY = "prog/Default/Layer Presets";

/// The layers' presets of a user whose folders are the test's.
struct Presets : PrivateFolders {
    PresetManager manager{PresetSections::LAYERS};

    Presets() { OrvUtils::setOrvProgDir((*this / "prog").string()); }

    /// The names, each with a + if it is one to merge.
    std::string list() const
    {
        return joined(
            manager.getList().getEntries(),
            [](const PresetEntry& entry) { return entry.name + (entry.merge ? "+" : ""); }, ",");
    }
    void writePreset(const std::string& name, const std::string& attributes = "") const
    {
        write(FOLDER + "/" + name, XML_HEAD + "<Layers" + attributes + "/>");
    }
    bool save(std::string_view name, bool merge = false)
    {
        return manager.save(name, [&](std::string& text) {
            text += std::string("<Layers merge=\"") + (merge ? "true" : "false") + "\">\n</Layers>\n";
        });
    }
};
}  // namespace

TEST(PresetManager, StartsANewUserWithTheFactorysPresets)
{
    Presets presets;
    presets.manager.refresh();
    EXPECT_EQ(presets.list(), "") << "the factory's folder is missing";
    EXPECT_FALSE(std::filesystem::exists(presets / FOLDER));

    presets.write(FACTORY + "/Organ.pst", XML_HEAD + "<Layers merge=\"true\"/>");
    presets.write(FACTORY + "/Bass.pst", XML_HEAD + "<Layers/>");
    presets.manager.refresh();
    EXPECT_EQ(presets.list(), "Bass,Organ+");
    EXPECT_EQ(presets.contents(FOLDER), "Bass.pst Organ.pst");

    presets.write(FACTORY + "/New.pst", XML_HEAD + "<Layers/>");
    presets.manager.remove("Bass");
    presets.manager.refresh();
    EXPECT_EQ(presets.list(), "Organ+") << "from then on the folder is the user's";
}

TEST(PresetManager, ListsEveryFileByItsBaseName)
{
    Presets presets;
    presets.writePreset("b.pst", " merge=\"true\"");
    presets.writePreset("a.pst", " merge=\"true\">");
    presets.writePreset("Z.pst", " merge=\"yes\"");
    presets.writePreset("v1.2.pst", " merge=\"1\"");
    presets.writePreset("Ünder-score! !.pst", " merge=\"true\"");
    presets.writePreset("both.pst", " merge=\"true\"");
    presets.write(FOLDER + "/notes.txt", "buy strings");
    presets.write(FOLDER + "/both.txt", "");
    presets.write(FOLDER + "/folder.pst/inside.pst", "");
    presets.write(FOLDER + "/.orvane-1-1", "half a preset");
    System::makeSpecialFile(presets / FOLDER / "pipe.pst");
    presets.manager.refresh();
    EXPECT_EQ(presets.list(), "Z+,a,b+,both,notes,v1.2,Ünder-score! !+");
    EXPECT_EQ(presets.manager.findPreset("Ünder-score! !"), textOf(presets / (FOLDER + "/Ünder-score! !.pst")));
    for (const char* other : {"notes", "folder", "pipe"}) EXPECT_EQ(presets.manager.findPreset(other), "") << other;
}

TEST(PresetManager, SavesUnderTheTrimmedNameAndListsItOnce)
{
    Presets presets;
    EXPECT_TRUE(presets.save("  Two words "));
    EXPECT_TRUE(presets.save("Alto"));
    EXPECT_EQ(presets.list(), "Alto,Two words");
    EXPECT_EQ(presets.read(FOLDER + "/Two words.pst"), XML_HEAD + "<Layers merge=\"false\">\n</Layers>\n");
    EXPECT_TRUE(presets.save("Two words", true));
    EXPECT_EQ(presets.list(), "Alto,Two words+");
    EXPECT_EQ(presets.manager.getPresetPath("x"), (presets / FOLDER / "x.pst").string());
}

TEST(PresetManager, RenamesAndRemoves)
{
    Presets presets;
    presets.save("a", true);
    presets.save("b");
    presets.save("c");
    presets.manager.rename("a", " d ");
    EXPECT_EQ(presets.list(), "b,c,d+");
    presets.manager.rename("d", "b");
    EXPECT_EQ(presets.list(), "b+,c") << "the one of that name is replaced";
    EXPECT_EQ(presets.contents(FOLDER), "b.pst c.pst");
    presets.manager.rename("none", "x");
    presets.manager.rename("b", "b");
    presets.manager.rename("b", "../b");
    presets.manager.remove("none");
    presets.manager.remove("c");
    EXPECT_EQ(presets.list(), "b+");
    EXPECT_EQ(presets.contents(FOLDER), "b.pst");

    std::filesystem::remove(presets / FOLDER / "b.pst");
    presets.manager.rename("b", "gone");
    EXPECT_EQ(presets.list(), "b+") << "it could not be renamed";
    presets.manager.remove("b");
    EXPECT_EQ(presets.list(), "");
}

TEST(PresetManager, NeverLeavesItsFolder)
{
    Presets presets;
    presets.write("data/Brinlow Software/Orvane 3/out.pst", "out");
    presets.save("in");
    for (const std::string& name :
         std::vector<std::string>{"", ".", "..", "../out", "..\\out", "/etc/x", "a/b", "a\nb", std::string("a\0b", 3),
                                  std::string(252, 'x'), "\x7f", "../../../config/x"}) {
        EXPECT_EQ(presets.manager.getPresetPath(name), "") << name;
        EXPECT_EQ(presets.manager.findPreset(name), "") << name;
        EXPECT_FALSE(isValidFileName(name)) << name;
        EXPECT_FALSE(presets.save(name)) << name;
        presets.manager.rename("in", name);
        presets.manager.remove(name);
    }
    for (const std::string name : {"a:b", "a*", "a?", "\"a\"", "<a", "a>", "a|b", "   "}) {
        EXPECT_FALSE(isValidFileName(name)) << name;
        EXPECT_FALSE(presets.save(name)) << name;
        presets.manager.rename("in", name);
    }
    EXPECT_EQ(presets.list(), "in");
    EXPECT_EQ(presets.contents(FOLDER), "in.pst");
    EXPECT_EQ(presets.contents("data/Brinlow Software/Orvane 3"), "Layer Presets out.pst");

    const std::string good[] = {" a ", "a.b", ".a", "...", "Größe 100%", "a'b&c", std::string(251, 'x')};
    for (const std::string& name : good) {
        EXPECT_TRUE(isValidFileName(name)) << name;
        EXPECT_TRUE(presets.save(name)) << name;
    }
}

TEST(PresetManager, KeepsTheOldPresetWhateverFails)
{
    for (int call = 0;; ++call) {
        Presets presets;
        presets.save("a", false);
        const auto saved = saveWithFault(call, [&] { return presets.save("a", true); });
        if (!saved) break;
        EXPECT_EQ(presets.list(), *saved ? "a+" : "a") << "call " << call;
        presets.manager.refresh();
        EXPECT_EQ(presets.list(), *saved ? "a+" : "a") << "call " << call;
    }
}
