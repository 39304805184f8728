#include "gui/keyboard/KeyboardHookProxy.h"

#include <gtest/gtest.h>

TEST(KeyboardHookProxy, IsHarmlessWithoutItsLibrary)
{
    const Gui::KeyboardHookProxy proxy("/nowhere");
    EXPECT_NE(proxy.getReason().find("/nowhere"), std::string::npos) << proxy.getReason();
    EXPECT_TRUE(proxy.setWindowHandle == nullptr && proxy.setEnabled == nullptr);
    EXPECT_TRUE(proxy.setExcludeKey == nullptr && proxy.clearExclude == nullptr);
    EXPECT_TRUE(proxy.addControlKey == nullptr && proxy.clearControlKeys == nullptr);
}
