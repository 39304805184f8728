#include <mutex>

#include "tests/window/SingleInstanceStage.h"

TEST_F(SingleInstance, PassesTheFilesOfLaterStartsToTheOneWindow)
{
    const auto instance = acquire();
    ASSERT_TRUE(instance);
    EXPECT_FALSE(acquire()) << "one for each user";

    std::mutex lock;
    std::vector<Files> received;
    instance->listen([&](const Files& files) {
        const std::lock_guard guard(lock);
        received.push_back(files);
        return true;
    });
    const std::vector<Files> all = {{}, {"/a.prg"}, {"/a b\n.bnk", "", "/ö"}, Files(2000, "/a/rather/long/path.bnk")};
    for (const Files& files : all) EXPECT_EQ(notify(files), Result::accepted);
    const std::lock_guard guard(lock);
    EXPECT_EQ(received, all);
}

TEST_F(SingleInstance, IsFreeAgainWhenTheWindowIsClosed)
{
    EXPECT_EQ(notify(), Result::noAnswer);
    {
        const auto instance = acquire();
        instance->listen([](const Files&) { return false; });
        EXPECT_EQ(notify(), Result::noAnswer) << "it refuses files while it closes";
        instance->stopListening();
        EXPECT_EQ(notify(), Result::noAnswer);
        EXPECT_FALSE(acquire()) << "the lock is given back last";
    }
    EXPECT_TRUE(acquire());
}

TEST_F(SingleInstance, IsSeparateForEachSettingsFolder)
{
    const auto instance = acquire();
    Folders::setSettings((folders / "other").string());
    EXPECT_EQ(notify(), Result::noAnswer);
    EXPECT_TRUE(acquire());
}
