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
using Knock = SingleInstance::Knock;

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

TEST(SingleInstance, GivesTheFilesOfThoseWhoKnockToTheOneWindow)
{
    const User user;
    const auto door = SingleInstance::build();
    ASSERT_TRUE(door);
    EXPECT_FALSE(SingleInstance::build()) << "one each";

    std::mutex lock;
    std::vector<Files> visits;
    door->open([&](const Files& files) {
        const std::lock_guard guard(lock);
        visits.push_back(files);
        return true;
    });
    const std::vector<Files> all = {{}, {"/a.prg"}, {"/a b\n.bnk", "", "/ö"}, Files(2000, "/a/rather/long/path.bnk")};
    for (const Files& files : all) EXPECT_EQ(SingleInstance::knock(files), Knock::answered);
    const std::lock_guard guard(lock);
    EXPECT_EQ(visits, all);
}

TEST(SingleInstance, IsFreeAgainWhenTheWindowIsClosed)
{
    const User user;
    EXPECT_EQ(SingleInstance::knock({}), Knock::inVain);
    {
        const auto door = SingleInstance::build();
        door->open([](const Files&) { return false; });
        EXPECT_EQ(SingleInstance::knock({}), Knock::inVain) << "its end was asked for";
        door->close();
        EXPECT_EQ(SingleInstance::knock({}), Knock::inVain);
        EXPECT_FALSE(SingleInstance::build()) << "it still ends";
    }
    EXPECT_TRUE(SingleInstance::build());
    EXPECT_EQ(user.runtime.contents(), "");
}

TEST(SingleInstance, IsAnotherForOtherSettings)
{
    const User user;
    const auto door = SingleInstance::build();
    Folders::setSettings((user.folders / "other").string());
    EXPECT_EQ(SingleInstance::knock({}), Knock::inVain);
    EXPECT_TRUE(SingleInstance::build());
}

TEST(SingleInstance, ReplacesWhatAKilledProgramLeft)
{
    const User user;
    const auto left = [&] {
        const auto door = SingleInstance::build();
        return user.runtime.contents();
    }();
    for (std::size_t start = 0; start < left.size(); start = left.find(' ', start) + 1) {
        user.runtime.write(left.substr(start, left.find(' ', start) - start), "");
        if (left.find(' ', start) == std::string::npos) break;
    }
    const auto door = SingleInstance::build();
    ASSERT_TRUE(door);
    door->open([](const Files&) { return true; });
    EXPECT_EQ(SingleInstance::knock({}), Knock::answered);
}

TEST(SingleInstance, IsDoneWithoutWhereTheFolderIsOfNoUse)
{
    const User user;
    const std::string tooLong = user.runtime.string() + "/" + std::string(120, 'x');
    std::filesystem::create_directory(tooLong);
    ::setenv("XDG_RUNTIME_DIR", tooLong.c_str(), 1);
    EXPECT_FALSE(SingleInstance::build());
    EXPECT_EQ(SingleInstance::knock({}), Knock::impossible);
}
}  // namespace Host
