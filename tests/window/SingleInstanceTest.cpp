#include "host/window/SingleInstance.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <mutex>

#include "tests/stage/PrivateFolders.h"

namespace Host
{
namespace
{
using Files = std::vector<std::string>;
using Result = SingleInstance::Result;

/// A user with an empty folder of run-time files.
class User
{
public:
    User() { ::setenv("XDG_RUNTIME_DIR", runtime.string().c_str(), 1); }
    ~User() { ::unsetenv("XDG_RUNTIME_DIR"); }

    TemporaryFolder runtime;
    PrivateFolders folders;
};
}  // namespace

TEST(SingleInstance, PassesTheFilesOfLaterStartsToTheOneWindow)
{
    const User user;
    const auto instance = SingleInstance::acquire();
    ASSERT_TRUE(instance);
    EXPECT_FALSE(SingleInstance::acquire()) << "one for each user";

    std::mutex lock;
    std::vector<Files> received;
    instance->listen([&](const Files& files) {
        const std::lock_guard guard(lock);
        received.push_back(files);
        return true;
    });
    const std::vector<Files> all = {{}, {"/a.prg"}, {"/a b\n.bnk", "", "/ö"}, Files(2000, "/a/rather/long/path.bnk")};
    for (const Files& files : all) EXPECT_EQ(SingleInstance::notify(files), Result::accepted);
    const std::lock_guard guard(lock);
    EXPECT_EQ(received, all);
}

TEST(SingleInstance, IsFreeAgainWhenTheWindowIsClosed)
{
    const User user;
    EXPECT_EQ(SingleInstance::notify({}), Result::noAnswer);
    {
        const auto instance = SingleInstance::acquire();
        instance->listen([](const Files&) { return false; });
        EXPECT_EQ(SingleInstance::notify({}), Result::noAnswer) << "it refuses files while it closes";
        instance->stopListening();
        EXPECT_EQ(SingleInstance::notify({}), Result::noAnswer);
        EXPECT_FALSE(SingleInstance::acquire()) << "the lock is given back last";
    }
    EXPECT_TRUE(SingleInstance::acquire());
    EXPECT_EQ(user.runtime.contents(), "");
}

TEST(SingleInstance, IsSeparateForEachSettingsFolder)
{
    const User user;
    const auto instance = SingleInstance::acquire();
    Folders::setSettings((user.folders / "other").string());
    EXPECT_EQ(SingleInstance::notify({}), Result::noAnswer);
    EXPECT_TRUE(SingleInstance::acquire());
}

TEST(SingleInstance, ReplacesWhatAKilledProgramLeft)
{
    const User user;
    const auto left = [&] {
        const auto instance = SingleInstance::acquire();
        return user.runtime.contents();
    }();
    for (std::size_t start = 0; start < left.size(); start = left.find(' ', start) + 1) {
        user.runtime.write(left.substr(start, left.find(' ', start) - start), "");
        if (left.find(' ', start) == std::string::npos) break;
    }
    const auto instance = SingleInstance::acquire();
    ASSERT_TRUE(instance);
    instance->listen([](const Files&) { return true; });
    EXPECT_EQ(SingleInstance::notify({}), Result::accepted);
}

TEST(SingleInstance, IsImpossibleWithoutAUsableFolder)
{
    const User user;
    const std::string tooLong = user.runtime.string() + "/" + std::string(120, 'x');
    std::filesystem::create_directory(tooLong);
    ::setenv("XDG_RUNTIME_DIR", tooLong.c_str(), 1);
    EXPECT_FALSE(SingleInstance::acquire());
    EXPECT_EQ(SingleInstance::notify({}), Result::impossible);
}
}  // namespace Host
