#include "keyboardhook/KeyTable.h"

#include <gtest/gtest.h>

#include "backend/values/Key.h"

TEST(KeyTable, HasEveryKeyWithANameAndTheKeyRightOfTheLeftShift)
{
    for (std::int32_t code = 0; code < 256; ++code) {
        const int scanCode = KeyTable::scanCodeOf(code);
        const bool hasName = Key{.keyCode = code}.toXmlString() != "Unknown";
        EXPECT_EQ(scanCode >= 0, hasName || code == Key::RIGHT_OF_LEFT_SHIFT) << code;
        EXPECT_EQ(KeyTable::virtualKeyAt(scanCode), scanCode < 0 ? -1 : code);
    }
    EXPECT_EQ(KeyTable::virtualKeyAt(KeyTable::scanCodeOf(Key::TAB) + 1), 'Q') << "it stands beside it";
    constexpr int NO_KEY = 0;
    for (const int scanCode : {NO_KEY, -1, 512}) EXPECT_EQ(KeyTable::virtualKeyAt(scanCode), -1) << scanCode;
    for (const int virtualKey : {-1, 0x100 + 'A'}) EXPECT_EQ(KeyTable::scanCodeOf(virtualKey), -1) << virtualKey;
}
