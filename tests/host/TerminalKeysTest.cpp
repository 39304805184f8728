#include <gtest/gtest.h>

#include "host/terminal/HeldKey.h"
#include "host/terminal/TerminalKeyParser.h"

namespace Host
{
namespace
{
using namespace std::string_view_literals;

std::string textOf(const std::vector<Key>& keys)
{
    std::string text;
    for (const Key& key : keys) text += (text.empty() ? "" : ", ") + key.toXmlString();
    return text;
}

std::string typed(std::string_view bytes)
{
    TerminalKeyParser parser;
    const std::string text = textOf(parser.parse(bytes));
    EXPECT_FALSE(parser.isWaiting()) << bytes;
    return text;
}

}  // namespace

TEST(TerminalKeys, AreThoseOfTheUsLayout)
{
    const std::pair<std::string_view, const char*> ROWS[] = {
        {"qZ", "Q, Shift Z"},
        {"09)(", "0, 9, Shift 0, Shift 9"},
        {"-_=+", "Minus, Shift Minus, Equals, Shift Equals"},
        {"[{]}\\|", "Left Bracket, Shift Left Bracket, Right Bracket, Shift Right Bracket, Backslash, Shift Backslash"},
        {";:'\"`~", "Semicolon, Shift Semicolon, Apostrophe, Shift Apostrophe, Quote, Shift Quote"},
        {",<.>/?", "Comma, Shift Comma, Period, Shift Period, Slash, Shift Slash"},
        {" \r\n\t\b\x7F", "Space, Enter, Enter, Tab, Backspace, Backspace"},
        {"\x01\x1A", "Control A, Control Z"},
        {"\x1B[A\x1BOB\x1B[C\x1B[D", "Up, Down, Right, Left"},
        {"\x1B[H\x1BOF\x1B[1~\x1B[4~\x1B[7~\x1B[8~", "Home, End, Home, End, Home, End"},
        {"\x1B[2~\x1B[3~\x1B[5~\x1B[6~", "Insert, Delete, Page Up, Page Down"},
        {"\x1BOP\x1BOS\x1B[11~\x1B[15~\x1B[17~\x1B[21~\x1B[23~\x1B[24~", "F1, F4, F1, F5, F6, F10, F11, F12"},
        {"\x1B[[A\x1B[[E\x1B[[Z", "F1, F5"},
        {"\x1B[1;2P\x1B[24;2~\x1B[1;5A\x1B[3;5~\x1B[1;8D",
         "Shift F1, Shift F12, Control Up, Control Delete, "
         "Shift Control Alt Left"},
        {"\x1B[Z\x1Bq\x1BQ\x1B\x1B[A", "Shift Tab, Alt Q, Shift Alt Q, Escape, Up"},
        {"\x1BOk\x1BOm\x1BOp\x1BOy\x1BOM", "Numpad +, Numpad -, Numpad 0, Numpad 9, Numpad Enter"},
        {"\xC3\xA9\x1B[99~\x1B[99999999999~\x1B[?25h\x1B[Ma\x1B[\x01"sv, "A, Control A"},
        {"\0\x1C"sv, ""}};
    for (const auto& [bytes, keys] : ROWS) EXPECT_EQ(typed(bytes), keys) << bytes;
}

TEST(TerminalKeys, MayComeInPieces)
{
    TerminalKeyParser parser;
    std::string text;
    for (const char byte : "\x1B[1;5A\x1BOPq"sv) text += textOf(parser.parse({&byte, 1}));
    EXPECT_EQ(text, "Control UpF1Q");
    const std::pair<std::string_view, const char*> ROWS[] = {
        {"\x1B", "Escape"}, {"\x1B[", "Alt Left Bracket"}, {"\x1BO", "Shift Alt O"}, {"\x1B[1;", ""}};
    for (const auto& [bytes, keys] : ROWS) {
        EXPECT_EQ(textOf(parser.parse(bytes)), "");
        EXPECT_TRUE(parser.isWaiting());
        EXPECT_EQ(textOf(parser.finish()), keys);
    }
    EXPECT_EQ(textOf(parser.parse("\x1B[" + std::string(1000, '1'))), "");
    EXPECT_FALSE(parser.isWaiting()) << "no sequence is that long";
}

TEST(HeldKey, ComesUpWhenNoRepeatComesInTimeOrAnotherKey)
{
    // What arrives and when, in milliseconds ("" for a look at the clock), and what was sent by then: < where a key
    // goes down, = repeats, > comes up.
    struct Step {
        const char* key;
        int milliseconds;
        const char* sent;
    };
    const std::vector<Step> CASES[] = {
        {{"A", 1000, "A<"}, {"", 1599, "A<"}, {"", 1600, "A<A>"}, {"", 9000, "A<A>"}},
        {{"A", 0, "A<"}, {"A", 599, "A<A="}, {"A", 630, "A<A=A="}, {"", 729, "A<A=A="}, {"", 730, "A<A=A=A>"}},
        {{"A", 0, "A<"}, {"A", 2000, "A<A>A<"}},  // too late for a repeat, also if nobody looked in between
        {{"A", 0, "A<"}, {"Shift A", 1, "A<A>Shift A<"}, {"B", 2, "A<A>Shift A<Shift A>B<"}}};
    for (const auto& steps : CASES) {
        std::string sent;
        HeldKey held([&](const KeyCommand& command) {
            sent += command.key.toXmlString() + "<=>"[static_cast<int>(command.action)];
        });
        const auto time = [](int milliseconds) { return HeldKey::Time(std::chrono::milliseconds(milliseconds)); };
        for (const auto& [key, milliseconds, expected] : steps) {
            if (*key == 0) held.advanceTo(time(milliseconds));
            if (*key != 0) held.receive(Key::fromXmlString(key), time(milliseconds));
            EXPECT_EQ(sent, expected);
            if (*key == 0) continue;
            EXPECT_EQ(held.getEnd(), time(milliseconds + (sent.ends_with("=") ? 100 : 600)));
        }
        const bool isDown = !sent.ends_with(">");
        held.release();
        EXPECT_TRUE(sent.ends_with(">") && held.getEnd() == std::nullopt);
        EXPECT_EQ(sent.size() > std::string_view(steps.back().sent).size(), isDown) << "once";
    }
}
}  // namespace Host
