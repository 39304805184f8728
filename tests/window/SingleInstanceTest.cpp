#include "host/window/SingleInstance.h"

#include <gtest/gtest.h>

#include <mutex>
#include <sstream>

#include "tests/stage/PrivateFolders.h"

using Files = std::vector<std::string>;
using Result = Host::SingleInstance::Result;

/// A user with an empty folder of run-time files.
struct SingleInstance : testing::Test {
    SingleInstance() { ::setenv("XDG_RUNTIME_DIR", runtime.string().c_str(), 1); }
    ~SingleInstance() { ::unsetenv("XDG_RUNTIME_DIR"); }
    static auto acquire() { return Host::SingleInstance::acquire(); }
    static Result notify(const Files& files = {}) { return Host::SingleInstance::notify(files); }

    TemporaryFolder runtime;
    PrivateFolders folders;
};

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

TEST_F(SingleInstance, IsFreeAgainWhenTheWindowIsClosedOrWasKilled)
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
    EXPECT_EQ(runtime.contents(), "");

    std::istringstream left;
    {
        const auto killed = acquire();
        left.str(runtime.contents());
    }
    for (std::string name; left >> name;) runtime.write(name, "");
    EXPECT_NE(runtime.contents(), "");
    const auto instance = acquire();
    ASSERT_TRUE(instance);
    instance->listen([](const Files&) { return true; });
    EXPECT_EQ(notify(), Result::accepted);
}

TEST_F(SingleInstance, IsSeparateForEachSettingsFolderAndImpossibleWithoutAUsableOne)
{
    const auto instance = acquire();
    Folders::setSettings((folders / "other").string());
    EXPECT_EQ(notify(), Result::noAnswer);
    EXPECT_TRUE(acquire());

    const std::string tooLong = runtime.string() + "/" + std::string(120, 'x');
    std::filesystem::create_directory(tooLong);
    ::setenv("XDG_RUNTIME_DIR", tooLong.c_str(), 1);
    EXPECT_FALSE(acquire());
    EXPECT_EQ(notify(), Result::impossible);
}
