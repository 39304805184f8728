#include <sstream>

#include "tests/window/SingleInstanceStage.h"

TEST_F(SingleInstance, IsFreeAgainWhenTheWindowWasKilled)
{
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

TEST_F(SingleInstance, IsImpossibleWithoutAUsableFolder)
{
    const std::string tooLong = runtime.string() + "/" + std::string(120, 'x');
    std::filesystem::create_directory(tooLong);
    System::setVariable("XDG_RUNTIME_DIR", tooLong);
    EXPECT_FALSE(acquire());
    EXPECT_EQ(notify(), Result::impossible);
}
