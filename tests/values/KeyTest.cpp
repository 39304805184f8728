#include "backend/values/Key.h"

#include <map>

#include "tests/values/ValueTesting.h"

TEST(Key, ReadsModifiersInTheirOrderAndThenAName)
{
    struct KeyRow {
        const char* text;
        Key key;
        const char* printed;
    };
    for (const auto& [text, key, printed] :
         {KeyRow{"A", {.keyCode = 65}, "A"},
          {"Shift F1", {.keyCode = 112, .shift = true}, "Shift F1"},
          {"Control Alt Delete", {.keyCode = 46, .control = true, .alt = true}, "Control Alt Delete"},
          {"Win A", {.keyCode = 65, .win = true}, "Win A"},
          {"Shift Control Alt Win Numpad +",
           {.keyCode = 107, .shift = true, .control = true, .alt = true, .win = true},
           "Shift Control Alt Win Numpad +"},
          {"Nonsense", {}, "Unknown"},
          {"", {}, "Unknown"},
          {"Unknown", {}, "Unknown"},
          {"a", {}, "Unknown"},
          {" A", {}, "Unknown"},
          {"A ", {}, "Unknown"},
          {"Shift", {.keyCode = 16}, "Left Shift"},
          {"Shift ", {.shift = true}, "Shift Unknown"},
          {"Shift Shift", {.keyCode = 16, .shift = true}, "Shift Left Shift"},
          {"Control Alt", {.keyCode = 2, .control = true}, "Control Unknown"},
          {"Alt Control B", {.alt = true}, "Alt Unknown"}}) {
        const Key read = Key::fromXmlString(text);
        EXPECT_EQ(read.keyCode, key.keyCode) << text;
        EXPECT_EQ(read.getPacked(), key.getPacked()) << text;
        EXPECT_EQ(read.toXmlString(), printed);
    }
}

TEST(Key, NamesEveryKeyOfTheTable)
{
    std::map<int, std::string> names;
    for (int code = 0; code < 256; ++code)
        if (const auto name = Key{code}.toXmlString(); name != "Unknown") names[code] = name;
    EXPECT_EQ(names.size(), 104u);
    for (const auto& [code, name] : {std::pair{8, "Backspace"},
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
                                     {222, "Apostrophe"}})
        EXPECT_EQ(names[code], name);

    for (const auto& [code, name] : names)
        EXPECT_EQ(Key::fromXmlString(name).keyCode, name.starts_with("Left ") && code != 219 ? -1 : code) << name;
}

TEST(Key, ShowsTheLeftModifiersUnderNamesThatItDoesNotRead)
{
    for (const auto& [code, name] :
         {std::pair{16, "Left Shift"}, {17, "Left Control"}, {91, "Left Windows"}, {164, "Left Alt"}}) {
        EXPECT_EQ(Key{code}.toXmlString(), name);
        EXPECT_EQ(Key::fromXmlString(name).keyCode, -1);
    }
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
    EXPECT_EQ(Key::fromLegacyCode(65).toXmlString(), "A");
    EXPECT_EQ(Key::fromLegacyCode(299).keyCode, 299);
    EXPECT_EQ(Key::fromLegacyCode(300 + 65).toXmlString(), "Shift A");
    EXPECT_EQ(Key::fromLegacyCode(600 + 65).toXmlString(), "Control A");
    EXPECT_EQ(Key::fromLegacyCode(900 + 65).toXmlString(), "Shift Control A");
    EXPECT_EQ(Key::fromLegacyCode(-1), Key{});
}
