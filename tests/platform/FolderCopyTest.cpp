#include "platform/FolderCopy.h"

#include <sys/stat.h>

#include <thread>

#include <gtest/gtest.h>

#include "platform/Shell.h"
#include "platform/linux/SequencerClients.h"
#include "tests/stage/TemporaryFolder.h"

namespace fs = std::filesystem;

TEST(FolderCopy, TakesEverythingButWhatIsThereAlready)
{
    const TemporaryFolder folder;
    folder.write("from/a", "factory");
    folder.write("from/b", "factory");
    folder.write("from/sub/deep/c", "factory");
    folder.write("from/locked", "factory");
    ::chmod((folder / "from/locked").c_str(), 0444);
    folder.write("to/deep/b", "mine");
    fs::create_symlink("nowhere", folder / "to/deep/a");
    EXPECT_TRUE(copyFolder(folder / "from", folder / "new/folder"));
    EXPECT_TRUE(copyFolder(folder / "from", folder / "to/deep"));

    EXPECT_EQ(folder.contents("new"), "folder");
    EXPECT_EQ(folder.contents("new/folder"), "a b locked sub");
    EXPECT_EQ(folder.contents("new/folder/sub/deep"), "c");
    EXPECT_EQ(fs::status(folder / "new/folder/locked").permissions() & fs::perms::owner_write, fs::perms::owner_write);
    EXPECT_EQ(folder.read("to/deep/b"), "mine");
    EXPECT_TRUE(fs::is_symlink(folder / "to/deep/a")) << "a link that leads nowhere is there too";
    EXPECT_EQ(folder.contents("to/deep"), "a b locked sub");
}

TEST(FolderCopy, LeavesOutWhatIsNoFileAndGoesOn)
{
    const TemporaryFolder folder;
    folder.write("from/file", "factory");
    folder.write("elsewhere/x", "x");
    ::mkfifo((folder / "from/pipe").c_str(), 0600);
    fs::create_directory_symlink("..", folder / "from/round");
    fs::create_directory_symlink("../elsewhere", folder / "from/other");
    fs::create_symlink("file", folder / "from/link");
    fs::create_symlink("nowhere", folder / "from/dangling");
    EXPECT_TRUE(copyFolder(folder / "from", folder / "to"));
    EXPECT_EQ(folder.contents("to"), "file link");
    EXPECT_FALSE(fs::is_symlink(folder / "to/link"));
    EXPECT_EQ(folder.read("to/link"), "factory");

    EXPECT_FALSE(copyFolder(folder / "none", folder / "never"));
    EXPECT_FALSE(copyFolder(folder / "from/file", folder / "never"));
    copyFolder(folder / "from", folder / "from/file");
    EXPECT_EQ(folder.read("from/file"), "factory") << "a file in a folder's place stays";
    EXPECT_EQ(folder.contents(), "elsewhere from to");
}

TEST(SequencerClients, CanBeReadThroughThePortsThatAreOpenToAll)
{
    EXPECT_EQ(readablePorts("Client info\n  cur  clients : 3\n  peak clients : 3\n  max  clients : 192\n\n"
                            "Client   0 : \"System\" [Kernel]\n"
                            "  Port   0 : \"Timer\" (Rwe-)\n"
                            "  Port   1 : \"Announce\" (R-e-)\n    Connecting To: 15:0\n"
                            "Client 128 : \"Keys\" [User]\n"
                            "  Port   0 : \"A \"good\" one\" (RWeX)\n"
                            "  Port   1 : \"for me\" (r---)\n"
                            "  Port   2 : \"Orvane\" (-We-)\n"
                            "  Port   3 : broken\n"
                            "  Port   4 : \"cut"),
              (std::vector<std::string>{"Timer", "Announce", "A \"good\" one"}));
    EXPECT_TRUE(readablePorts("").empty());
}

TEST(Shell, GivesTheDocumentToTheDesktopAndGoesOn)
{
    const TemporaryFolder folder;
    const std::string path = folder.string() + "/a page; touch x $(y) 'z'.htm";
    ::setenv("PATH", folder.string().c_str(), 1);
    EXPECT_EQ(OpenedDocument(path).getProblem(), "xdg-open is not installed");

    folder.write("xdg-open", "#!/bin/sh\nprintf '%s' \"$1\" >\"" + folder.string() + "/opening\"\n/bin/mv \"" +
                                 folder.string() + "/opening\" \"" + folder.string() + "/opened\"\n");
    ::chmod((folder / "xdg-open").c_str(), 0755);
    OpenedDocument document(path);
    EXPECT_EQ(document.getProblem(), "");
    for (int i = 0; i < 6000 && folder.read("opened").empty(); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    EXPECT_EQ(folder.read("opened"), path);
    EXPECT_EQ(document.getProblem(), "");
}
