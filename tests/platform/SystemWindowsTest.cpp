#include <gtest/gtest.h>
#include <windows.h>

#include "platform/FileLock.h"
#include "platform/Thread.h"
#include "platform/WholeFile.h"
#include "tests/stage/TemporaryFolder.h"

namespace
{
const std::string BEFORE(200000, 'o');
const std::string AFTER(100000, 'n');
}  // namespace

TEST(WholeFile, IsNotReplacedWhereThatIsNotAllowedAndNothingIsLeftBeside)
{
    const TemporaryFolder folder;
    const auto bank = folder / "Bänk";
    EXPECT_FALSE(WholeFile::replace(bank, BEFORE)) << "a new one";
    SetFileAttributesW(bank.c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(WholeFile::replace(bank, AFTER), std::errc::permission_denied);
    SetFileAttributesW(bank.c_str(), FILE_ATTRIBUTE_NORMAL);
    const HANDLE taken = CreateFileW(bank.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_TRUE(WholeFile::replace(bank, AFTER)) << "another program has it open";
    CloseHandle(taken);
    EXPECT_EQ(folder.read("Bänk"), BEFORE);
    EXPECT_EQ(folder.contents(), "Bänk");
    EXPECT_EQ(WholeFile::replace(folder / "none" / "bank", AFTER), std::errc::no_such_file_or_directory);
    EXPECT_EQ(WholeFile::replace(folder / "", AFTER), std::errc::is_a_directory);

    std::vector<std::uint8_t> bytes;
    EXPECT_FALSE(WholeFile::read(bank, BEFORE.size(), bytes));
    EXPECT_EQ(bytes.size(), BEFORE.size());
    EXPECT_EQ(WholeFile::read(bank, 1000, bytes), std::errc::file_too_large);
    EXPECT_EQ(WholeFile::read(folder / "none", 1000, bytes), std::errc::no_such_file_or_directory);
}

TEST(FileLock, HasOneHolderAndLeavesNoFile)
{
    const TemporaryFolder folder;
    {
        const auto held = FileLock::take(folder / "lock");
        EXPECT_TRUE(held && !FileLock::take(folder / "lock"));
    }
    EXPECT_EQ(folder.contents(), "");
    EXPECT_TRUE(FileLock::take(folder / "lock"));
    EXPECT_FALSE(FileLock::take(folder / "none" / "lock"));
}

TEST(Thread, HasItsOwnPriorityAndPassesNoneOn)
{
    Thread clock;
    Thread child;
    clock.start("clock", [&] {
        const ThreadId own = currentThreadId();
        const bool granted = requestRealTimePriority(RealTimeStep::clock);
        EXPECT_EQ(granted, realTimePriority() > 0);
        child.start("child", [own] {
            EXPECT_EQ(realTimePriority(), 0);
            EXPECT_NE(currentThreadId(), own);
        });
        child.join();
    });
    clock.join();
    EXPECT_NE(realTimeAnswer(RealTimeStep::clock), RealTimeAnswer::none);
}
