#include "host/common/WholeFile.h"

#include <sys/resource.h>
#include <sys/stat.h>
#include <csignal>
#include <fstream>

#include <gtest/gtest.h>

#include "tests/host/HostTesting.h"

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

std::string complaintWriting(const fs::path& path)
{
    return complaintOf([&] { writeWholeFile(path, "new"); });
}

/// No file may grow beyond some bytes while this stands, as on a disk that fills up.
class FullDisk
{
public:
    explicit FullDisk(rlim_t bytes) : oldAction(std::signal(SIGXFSZ, SIG_IGN))
    {
        ::getrlimit(RLIMIT_FSIZE, &oldLimit);
        const rlimit limit{bytes, oldLimit.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk()
    {
        ::setrlimit(RLIMIT_FSIZE, &oldLimit);
        std::signal(SIGXFSZ, oldAction);
    }

private:
    void (*oldAction)(int);
    rlimit oldLimit{};
};

TEST(WholeFile, SaysWhyAFileCannotBeRead)
{
    const TemporaryFolder folder;
    const fs::path missing = folder / "none.perf";
    EXPECT_EQ(complaintOf([&] { readWholeFile(missing); }), missing.string() + ": no such file or directory");
    EXPECT_EQ(complaintOf([&] { readWholeFile(folder / ""); }), (folder / "").string() + ": is a directory");
    EXPECT_EQ(complaintOf([] { readWholeFile("/dev/zero", 100000); }), "/dev/zero: larger than 100000 bytes");
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

TEST(WholeFile, SaysWhyAFileCannotBeWrittenAndLeavesNothingBehind)
{
    const TemporaryFolder folder;
    fs::create_directory(folder / "sub");
    fs::create_symlink("loop", folder / "loop");
    writeWholeFile(folder / "plain", "old");

    EXPECT_EQ(complaintWriting(folder / "none" / "a.mid"),
              (folder / "none/a.mid").string() + ": no such file or directory");
    EXPECT_EQ(complaintWriting(folder / "plain" / "a.mid"), (folder / "plain/a.mid").string() + ": not a directory");
    EXPECT_EQ(complaintWriting(folder / "sub"), (folder / "sub").string() + ": is a directory");
    EXPECT_EQ(complaintWriting(folder / "loop"), (folder / "loop").string() + ": too many levels of symbolic links");
    EXPECT_EQ(complaintWriting("/dev/full"), "/dev/full: no space left on device");
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
