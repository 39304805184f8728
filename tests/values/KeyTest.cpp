#include "backend/values/Key.h"

#include "tests/values/ValueTesting.h"

TEST(Key, ReadsModifiersInTheirOrderAndThenAName)
{
    const Key all{.keyCode = Key::NUMPAD_ADD, .shift = true, .control = true, .alt = true, .win = true};
    const Row<Key> rows[] = {
        {"A", {.keyCode = 'A'}, "A"},
        {"Shift F1", {.keyCode = Key::F1, .shift = true}, "Shift F1"},
        {"Control Alt Delete", {.keyCode = Key::DELETE, .control = true, .alt = true}, "Control Alt Delete"},
        {"Win A", {.keyCode = 'A', .win = true}, "Win A"},
        {"Shift Control Alt Win Numpad +", all, "Shift Control Alt Win Numpad +"},
        {"Shift", {.keyCode = Key::LEFT_SHIFT}, "Left Shift"},
        {"Shift ", {.shift = true}, "Shift Unknown"},
        {"Shift Shift", {.keyCode = Key::LEFT_SHIFT, .shift = true}, "Shift Left Shift"},
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

TEST(Key, ReadsEveryNameThatItPrintsButThoseOfTheLeftModifiers)
{
    int names = 0;
    for (int code = 0; code < 256; ++code) {
        const std::string name = Key{code}.toXmlString();
        if (name == "Unknown") continue;
        ++names;
        const bool isRead = !name.starts_with("Left ") || code == Key::LEFT_BRACKET;
        EXPECT_EQ(Key::fromXmlString(name).keyCode, isRead ? code : -1) << name;
    }
    EXPECT_EQ(names, 104);
    EXPECT_EQ(Key::fromXmlString("Control").keyCode, Key::LEFT_CONTROL);
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
        {65, "A"},       {300 + 65, "Shift A"}, {600 + 65, "Control A"},           {900 + 65, "Shift Control A"},
        {33, "Page Up"}, {192, "Quote"},        {300 + 226, "Shift Numpad Enter"}, {-1, "Unknown"}};
    for (const auto& [code, name] : rows) EXPECT_EQ(Key::fromLegacyCode(code).toXmlString(), name);
    EXPECT_EQ(Key::fromLegacyCode(299).keyCode, 299);
}
