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
    constexpr int Q = 24, VOLUME_UP = 123;
    EXPECT_EQ(KeyTable::virtualKeyAt(Q), 'Q');
    for (const int scanCode : {VOLUME_UP, -1, 256}) EXPECT_EQ(KeyTable::virtualKeyAt(scanCode), -1) << scanCode;
    for (const int virtualKey : {-1, 0x100 + 'A'}) EXPECT_EQ(KeyTable::scanCodeOf(virtualKey), -1) << virtualKey;
}
