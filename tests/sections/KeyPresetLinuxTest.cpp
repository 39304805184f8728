#include "tests/sections/KeyStage.h"
#include "tests/stage/System.h"

using namespace Backend;
using namespace Backend::ComputerInput;

// Before the first line, so that the debug stream is on.
static const bool DEBUGGING = (System::setVariable("ORVANE_DEBUG", "1"), true);

// Names of files are any bytes on Linux alone.
TEST(KeyPreset, OfANameThatIsNotTextIsNotReferredTo)
{
    KeyStage stage;
    ComputerInputManager& keys = stage.keys();
    stage.writePreset("K\xE9", "<ComputerInput>" + noteKey("B", "D4") + "</ComputerInput>");
    ASSERT_TRUE(DEBUGGING);
    testing::internal::CaptureStderr();
    keys.loadPreset("K\xE9");
    EXPECT_NE(testing::internal::GetCapturedStderr().find("K\xE9 is not UTF-8"), std::string::npos);
    EXPECT_EQ(stage.names() + keys.getCurrentPreset(), "B") << "no program can hold such a name";
}
