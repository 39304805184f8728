#include "platform/WholeFile.h"

#include <algorithm>

#include <gtest/gtest.h>

#include "tests/stage/FileFault.h"
#include "tests/stage/TemporaryFolder.h"
#include "tests/stage/Victim.h"

namespace
{
const std::string OLD = "old";
const std::string NEW(100000, 'n');
}  // namespace

TEST(WholeFile, IsTheOldOneOrTheNewOneWhateverCallMeetsAFullDisk)
{
    int failures = 0;
    for (int call = 0;; ++call) {
        const TemporaryFolder folder;
        folder.write("bank", OLD);
        const FileFault fault(FileFault::Kind::fullDisk, call);
        const auto error = WholeFile::replace(folder / "bank", NEW);
        if (!fault.hasHappened()) {
            EXPECT_EQ(fault.calls(), FileFault::REPLACEMENT);
            break;
        }
        EXPECT_EQ(folder.read("bank") == (error ? OLD : NEW), true) << "call " << call << ": " << error.message();
        EXPECT_EQ(folder.contents(), "bank") << "call " << call;
        failures += error ? 1 : 0;
    }
    const std::string calls = FileFault::REPLACEMENT;
    EXPECT_EQ(failures, 1 + std::ranges::count(calls.substr(0, calls.find("rename")), ' '))
        << "all but what only the folder's sync needs";
}

TEST(WholeFile, IsTheOldOneOrTheNewOneWhereverTheProcessIsKilled)
{
    bool sawOld = false;
    bool sawNew = false;
    for (int call = 0;; ++call) {
        const TemporaryFolder folder;
        folder.write("bank", OLD);
        const auto replace = [](const std::filesystem::path& there, int at) {
            const FileFault fault(FileFault::Kind::death, at);
            WholeFile::replace(there / "bank", NEW);
        };
        const bool isKilled = isKilledIn(call, folder, replace);
        const std::string found = folder.read("bank");
        sawOld = sawOld || found == OLD;
        sawNew = sawNew || found == NEW;
        EXPECT_TRUE(found == OLD || found == NEW) << "killed in call " << call;
        EXPECT_FALSE(WholeFile::replace(folder / "bank", "next"));
        EXPECT_EQ(folder.read("bank"), "next");
        if (!isKilled) break;
    }
    EXPECT_TRUE(sawOld && sawNew);
}

TEST(WholeFile, IsOnTheDiskBeforeItTakesTheOldOnesPlace)
{
    const TemporaryFolder folder;
    folder.write("bank", OLD);
    const FileFault watch(FileFault::Kind::none, 0);
    EXPECT_FALSE(WholeFile::replace(folder / "bank", NEW));
    EXPECT_EQ(watch.calls(), FileFault::REPLACEMENT);
}

TEST(WholeFile, KnowsWhatAKilledRunLeftBehind)
{
    const TemporaryFolder folder;
    EXPECT_TRUE(WholeFile::isTemporary(WholeFile::temporaryBeside(folder / "bank")));
    EXPECT_FALSE(WholeFile::isTemporary(folder / "bank"));
}
