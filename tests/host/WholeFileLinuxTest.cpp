#include "host/common/WholeFile.h"

#include <sys/stat.h>

#include <gtest/gtest.h>

#include "tests/host/HostTesting.h"
#include "tests/stage/FullDisk.h"

namespace Host
{
namespace
{
namespace fs = std::filesystem;
using Testing::complaintOf;
using Testing::TemporaryFolder;

std::string textOf(const fs::path& path)
{
    const std::vector<std::uint8_t> bytes = readWholeFile(path);
    return {bytes.begin(), bytes.end()};
}

TEST(WholeFile, ReplacesAFileKeepingItsModeAndTheLinkToIt)
{
    const TemporaryFolder folder;
    writeWholeFile(folder / "take.mid", "old");
    ::chmod((folder / "take.mid").c_str(), 0640);
    fs::create_symlink("take.mid", folder / "latest.mid");
    fs::create_symlink("latest.mid", folder / "link.mid");
    fs::create_symlink("later.mid", folder / "dangling.mid");
    fs::create_directories(folder / "takes/monday");
    fs::create_directory_symlink("takes/monday", folder / "today");

    writeWholeFile(folder / "link.mid", std::string(200000, 'x'));
    writeWholeFile(folder / "dangling.mid", "later");
    writeWholeFile(folder / "today/../up.mid", "up");

    EXPECT_EQ(textOf(folder / "take.mid"), std::string(200000, 'x'));
    EXPECT_EQ(fs::status(folder / "take.mid").permissions(), static_cast<fs::perms>(0640));
    EXPECT_EQ(textOf(folder / "later.mid"), "later");
    EXPECT_EQ(textOf(folder / "takes/up.mid"), "up");
    EXPECT_TRUE(fs::is_symlink(folder / "link.mid") && fs::is_symlink(folder / "dangling.mid"));
    EXPECT_EQ(folder.contents(), "dangling.mid later.mid latest.mid link.mid take.mid takes today");
}

TEST(WholeFile, SaysWhyAFileCannotBeReadOrWrittenAndLeavesNothingBehind)
{
    const TemporaryFolder folder;
    fs::create_directory(folder / "sub");
    fs::create_symlink("loop", folder / "loop");
    writeWholeFile(folder / "plain", "old");
    const std::pair<fs::path, const char*> UNREADABLE[] = {{folder / "none", "no such file or directory"},
                                                           {folder / "sub", "is a directory"},
                                                           {"/dev/zero", "larger than 100000 bytes"}};
    for (const auto& [path, reason] : UNREADABLE)
        EXPECT_EQ(complaintOf([&] { readWholeFile(path, 100000); }), path.string() + ": " + reason);
    const std::pair<fs::path, const char*> UNWRITABLE[] = {{folder / "none" / "a.mid", "no such file or directory"},
                                                           {folder / "plain" / "a.mid", "not a directory"},
                                                           {folder / "sub", "is a directory"},
                                                           {folder / "loop", "too many levels of symbolic links"},
                                                           {"/dev/full", "no space left on device"}};
    for (const auto& [path, reason] : UNWRITABLE)
        EXPECT_EQ(complaintOf([&] { writeWholeFile(path, "new"); }), path.string() + ": " + reason);
    EXPECT_EQ(folder.contents(), "loop plain sub");
}

TEST(StagedFiles, ReplaceNothingWhenOneOfThemFails)
{
    const TemporaryFolder folder;
    writeWholeFile(folder / "out.csv", "old");
    const std::string full = complaintOf([&] {
        StagedFiles files;
        files.add(folder / "out.csv", "new");
        const FullDisk disk(1000);
        files.add(folder / "out.mid", std::string(2000, 'x'));
        files.commit();
    });
    EXPECT_EQ(full, (folder / "out.mid").string() + ": file too large");

    const std::string device = complaintOf([&] {
        StagedFiles files;
        files.add(folder / "out.csv", "new");
        files.add("/dev/full", "new");
        files.commit();
    });
    EXPECT_EQ(device, "/dev/full: no space left on device");
    EXPECT_EQ(textOf(folder / "out.csv"), "old");
    EXPECT_EQ(folder.contents(), "out.csv");
}

TEST(StagedFiles, AppearTogetherAtTheEnd)
{
    const TemporaryFolder folder;
    StagedFiles files;
    files.add(folder / "out.csv", "events");
    files.add(folder / "out.mid", "music");
    EXPECT_EQ(complaintOf([&] { files.add(folder / "./out.mid", "twice"); }),
              (folder / "./out.mid").string() + ": named for two output files");
    EXPECT_FALSE(fs::exists(folder / "out.csv"));

    files.commit();

    EXPECT_EQ(textOf(folder / "out.csv") + " " + textOf(folder / "out.mid"), "events music");
    EXPECT_EQ(folder.contents(), "out.csv out.mid");
}
}  // namespace
}  // namespace Host
