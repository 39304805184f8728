#include <gtest/gtest.h>
#include <sys/stat.h>

#include "tests/stage/LiveStage.h"

using namespace Backend;

TEST(Saving, KeysPlayWhileAFileIsWrittenAndLoadsWaitForIt)
{
    LiveStage stage;
    const std::string pipe = (stage.folders / "slow disk").string();
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    stage.commands().postSaveToProgram(pipe, {});
    stage.commands().postLoadProgramFromString("<F><Program name='Loaded'/></F>", 0);
    stage.commands().postKeyDown(Key::fromXmlString("Q"), false);
    while (stage.player.events == 0) std::this_thread::yield();
    EXPECT_FALSE(stage.orv->isAtRest());
    std::thread end([&] { stage.commands().sendEnd(); });
    stage.folders.write("copy", stage.folders.read("slow disk"));
    end.join();
    EXPECT_NE(stage.folders.read("copy").find("<Key id=\"Q\""), std::string::npos) << "as it was before the load";
    EXPECT_EQ(stage.orv->getProgram().name, "Loaded");
}
