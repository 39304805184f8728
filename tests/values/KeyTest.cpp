#include "backend/values/Key.h"

#include <map>

#include "tests/values/ValueTesting.h"

TEST(Key, ReadsModifiersInTheirOrderAndThenAName)
{
    const Key all{.keyCode = 107, .shift = true, .control = true, .alt = true, .win = true};
    const Row<Key> rows[] = {
        {"A", {.keyCode = 65}, "A"},
        {"Shift F1", {.keyCode = 112, .shift = true}, "Shift F1"},
        {"Control Alt Delete", {.keyCode = 46, .control = true, .alt = true}, "Control Alt Delete"},
        {"Win A", {.keyCode = 65, .win = true}, "Win A"},
        {"Shift Control Alt Win Numpad +", all, "Shift Control Alt Win Numpad +"},
        {"Shift", {.keyCode = 16}, "Left Shift"},
        {"Shift ", {.shift = true}, "Shift Unknown"},
        {"Shift Shift", {.keyCode = 16, .shift = true}, "Shift Left Shift"},
        {"Control Alt", {.keyCode = 2, .control = true}, "Control Unknown"},
        {"Alt Control B", {.alt = true}, "Alt Unknown"}};
    for (const auto& [text, key, printed] : rows) {
        const Key read = Key::fromXmlString(text);
        EXPECT_EQ(read.keyCode, key.keyCode) << text;
        EXPECT_EQ(read.getPacked(), key.getPacked()) << text;
        EXPECT_EQ(read.toXmlString(), printed);
    }
    for (const char* unknown : {"Nonsense", "", "Unknown", "a", " A", "A "}) {
        EXPECT_EQ(Key::fromXmlString(unknown), Key{}) << unknown;
        EXPECT_EQ(Key::fromXmlString(unknown).keyCode, -1) << unknown;
    }
    EXPECT_EQ(Key{}.toXmlString(), "Unknown");
}

TEST(Key, NamesEveryKeyOfTheTable)
{
    std::map<int, std::string> names;
    for (int code = 0; code < 256; ++code)
        if (const auto name = Key{code}.toXmlString(); name != "Unknown") names[code] = name;
    EXPECT_EQ(names.size(), 104u);
    const std::pair<int, const char*> known[] = {{8, "Backspace"},
                                                 {57, "9"},
                                                 {90, "Z"},
                                                 {96, "Numpad 0"},
                                                 {105, "Numpad 9"},
                                                 {123, "F12"},
                                                 {1, "Right Shift"},
                                                 {225, "Right Control"},
                                                 {165, "Right Alt"},
                                                 {5, "Print Screen"},
                                                 {226, "Numpad Enter"},
                                                 {93, "Windows Key"},
                                                 {192, "Quote"},
                                                 {222, "Apostrophe"},
                                                 {16, "Left Shift"},
                                                 {17, "Left Control"},
                                                 {91, "Left Windows"},
                                                 {164, "Left Alt"}};
    for (const auto& [code, name] : known) EXPECT_EQ(names[code], name);
    for (const auto& [code, name] : names)  // the left modifiers have names that are not read
        EXPECT_EQ(Key::fromXmlString(name).keyCode, name.starts_with("Left ") && code != 219 ? -1 : code) << name;
    EXPECT_EQ(Key::fromXmlString("Control").keyCode, 17);
    EXPECT_EQ(Key::fromXmlString("Alt").keyCode, 2);
    EXPECT_EQ(Key{2}.toXmlString(), "Unknown");
}

TEST(Key, ComparesAndTravelsInEightBitsAndFourModifiers)
{
    const Key key{.keyCode = 65, .shift = true, .win = true};
    EXPECT_EQ(key.getPacked(), 0x941u);
    EXPECT_EQ(Key::fromPacked(0x941).toXmlString(), "Shift Win A");
    for (std::uint32_t packed = 0; packed < 0x1000; ++packed) EXPECT_EQ(Key::fromPacked(packed).getPacked(), packed);
    EXPECT_EQ((Key{65 + 256}), Key{65});
    EXPECT_EQ(Key::fromPacked(Key{}.getPacked()), Key{});
    EXPECT_LT((Key{200}), (Key{.keyCode = 1, .shift = true}));
}

TEST(Key, ReadsTheNumbersOfOldFiles)
{
    const std::pair<int, const char*> rows[] = {
        {65, "A"}, {300 + 65, "Shift A"}, {600 + 65, "Control A"}, {900 + 65, "Shift Control A"}, {-1, "Unknown"}};
    for (const auto& [code, name] : rows) EXPECT_EQ(Key::fromLegacyCode(code).toXmlString(), name);
    EXPECT_EQ(Key::fromLegacyCode(299).keyCode, 299);
}
