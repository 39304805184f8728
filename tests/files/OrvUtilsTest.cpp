#include "api/OrvUtils.h"

#include <gtest/gtest.h>

#include "tests/stage/PrivateFolders.h"

using Backend::OrvUtils;

namespace
{
const std::string DATA = "data/Brinlow Software/Orvane 3";
const char* const SUB_FOLDERS[] = {"Computer Input Presets", "Control Presets",    "Joystick Presets", "Layer Presets",
                                   "Midi Input Presets",     "Oscillator Presets", "Sequences",        "Banks"};

/// A user for whom everything was copied from an installed product.
struct Installed : PrivateFolders {
    Installed()
    {
        for (const std::string name : SUB_FOLDERS) write("prog/Default/" + name + "/Factory.pst", "factory");
        OrvUtils::setOrvProgDir((*this / "prog").string());
        OrvUtils::install(false);
        for (const std::string name : SUB_FOLDERS) OrvUtils::copyFiles(name, name);
        write(DATA + "/Retrospective Record/deep/take", "record");
        write(DATA + "/Midi Inputs.txt", "In 1\n");
        write(DATA + "/Midi Outputs.txt", "Out 1\n");
    }
};
}  // namespace

TEST(OrvUtils, NamesTheFolders)
{
    const PrivateFolders folder;
    EXPECT_EQ(OrvUtils::getCompanyAppDataDir(), textOf(folder / "data/Brinlow Software"));
    EXPECT_EQ(OrvUtils::getOrvAppDataDir(), (folder / DATA).string());
    EXPECT_TRUE(std::filesystem::is_directory(folder / "data"));

    OrvUtils::setOrvAppDataDir("/elsewhere/");
    EXPECT_EQ(OrvUtils::getOrvAppDataDir(), "/elsewhere");
    OrvUtils::setOrvAppDataDir("");

    EXPECT_EQ(OrvUtils::getOrvProgDir(), "");
    ASSERT_TRUE(OrvUtils::setOrvProgDir("/opt/Orvane/"));
    EXPECT_EQ(OrvUtils::getOrvProgDir(), "/opt/Orvane");
    EXPECT_EQ(folder.read("config/Brinlow Software/Orvane 3/3.2"), "ProgDir=string:/opt/Orvane/\n");
    EXPECT_EQ(OrvUtils::getRegistryKey("My Host"), "Software\\Brinlow Software\\My Host\\3.2");
    EXPECT_NE(OrvUtils::getDllInstance(), nullptr);

    folder.write("file", "");
    Folders::setLocalApplicationData((folder / "file").string());
    EXPECT_EQ(OrvUtils::getOrvAppDataDir(), "") << "no folder can be made there";
    OrvUtils::copyFiles("Banks", "Banks");
    uninstall();
}

TEST(OrvUtils, RemovesWhatTheProductBroughtAndTheFoldersThatAreEmptyThen)
{
    const Installed folder;
    EXPECT_EQ(folder.read(DATA + "/Banks/Factory.pst"), "factory");
    uninstall();
    EXPECT_EQ(folder.contents("data"), "");
    EXPECT_EQ(folder.contents("prog/Default"),
              "Banks Computer Input Presets Control Presets Joystick Presets "
              "Layer Presets Midi Input Presets Oscillator Presets Sequences");
}

TEST(OrvUtils, LeavesTheUsersOwnFiles)
{
    const Installed folder;
    folder.write(DATA + "/Layer Presets/Mine.pst", "mine");
    folder.write(DATA + "/Banks/Tour/Factory.pst", "mine");
    folder.write(DATA + "/Banks/Factory.pst", "saved into");
    folder.write("precious/take", "mine");
    std::error_code hasNoLinks;
    std::filesystem::create_directory_symlink(folder / "precious", folder / DATA / "Retrospective Record/link",
                                              hasNoLinks);
    std::filesystem::remove(folder / DATA / "Sequences/Factory.pst");
    std::filesystem::create_directory(folder / DATA / "Sequences/Factory.pst");
    uninstall();
    EXPECT_EQ(folder.contents(DATA), "Banks Layer Presets Sequences");
    EXPECT_EQ(folder.contents(DATA + "/Layer Presets"), "Mine.pst");
    EXPECT_EQ(folder.read(DATA + "/Banks/Tour/Factory.pst"), "mine");
    EXPECT_EQ(folder.read(DATA + "/Banks/Factory.pst"), "saved into");
    EXPECT_EQ(folder.contents(DATA + "/Sequences"), "Factory.pst") << "a folder of that name is not the product's";
    EXPECT_EQ(folder.read("precious/take"), "mine");
}

TEST(OrvUtils, RemovesNothingItDoesNotKnowOnceTheInstallFolderIsGone)
{
    const Installed folder;
    std::filesystem::remove_all(folder / "prog");
    uninstall();
    EXPECT_EQ(folder.read(DATA + "/Banks/Factory.pst"), "factory");
    EXPECT_FALSE(std::filesystem::exists(folder / DATA / "Midi Inputs.txt"));
}
