#include "platform/FolderCopy.h"

#include <gtest/gtest.h>

#include "tests/stage/TemporaryFolder.h"

namespace fs = std::filesystem;

TEST(FolderCopy, TakesEverythingButWhatIsThereAlready)
{
    const TemporaryFolder folder;
    folder.write("from/a", "factory");
    folder.write("from/b", "factory");
    folder.write("from/sub/deep/c", "factory");
    folder.write("from/locked", "factory");
    fs::permissions(folder / "from/locked", fs::perms::owner_write, fs::perm_options::remove);
    folder.write("to/deep/b", "mine");
    EXPECT_TRUE(copyFolder(folder / "from", folder / "new/folder"));
    EXPECT_TRUE(copyFolder(folder / "from", folder / "to/deep"));

    EXPECT_EQ(folder.contents("new"), "folder");
    EXPECT_EQ(folder.contents("new/folder"), "a b locked sub");
    EXPECT_EQ(folder.contents("new/folder/sub/deep"), "c");
    EXPECT_EQ(fs::status(folder / "new/folder/locked").permissions() & fs::perms::owner_write, fs::perms::owner_write);
    EXPECT_EQ(folder.read("to/deep/b"), "mine");
    EXPECT_EQ(folder.contents("to/deep"), "a b locked sub");
}
