#include "platform/FolderCopy.h"

#include <sys/stat.h>

#include <gtest/gtest.h>

#include "tests/stage/TemporaryFolder.h"

namespace fs = std::filesystem;

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

    fs::create_directory(folder / "half");
    fs::create_symlink("nowhere", folder / "half/file");
    EXPECT_TRUE(copyFolder(folder / "from", folder / "half"));
    EXPECT_TRUE(fs::is_symlink(folder / "half/file")) << "a link that leads nowhere is there too";

    EXPECT_FALSE(copyFolder(folder / "none", folder / "never"));
    EXPECT_FALSE(copyFolder(folder / "from/file", folder / "never"));
    copyFolder(folder / "from", folder / "from/file");
    EXPECT_EQ(folder.read("from/file"), "factory") << "a file in a folder's place stays";
    EXPECT_EQ(folder.contents(), "elsewhere from half to");
}
