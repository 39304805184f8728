#include <gtest/gtest.h>

#include "host/terminal/HeldKey.h"
#include "host/terminal/TerminalKeyParser.h"

namespace Host
{
namespace
{
using namespace std::chrono_literals;
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

/// What a held key sends, on a clock of our own: letters for keys, < where one goes down, = repeats, > comes up.
struct Fingers {
    std::string sent;
    HeldKey held{[this](const KeyCommand& command) {
        sent += command.key.toXmlString() + "<=>"[static_cast<int>(command.action)];
    }};

    HeldKey::Time at(int milliseconds) { return HeldKey::Time(std::chrono::milliseconds(milliseconds)); }
    void receive(const char* key, int milliseconds) { held.receive(Key::fromXmlString(key), at(milliseconds)); }
};
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

TEST(HeldKey, ComesUpWhenNoRepeatComes)
{
    Fingers fingers;
    fingers.receive("A", 1000);
    EXPECT_EQ(fingers.held.getEnd(), fingers.at(1600));
    fingers.held.advanceTo(fingers.at(1599));
    EXPECT_EQ(fingers.sent, "A<");
    fingers.held.advanceTo(fingers.at(1600));
    EXPECT_EQ(fingers.sent, "A<A>");
    EXPECT_EQ(fingers.held.getEnd(), std::nullopt);
    fingers.held.advanceTo(fingers.at(9000));
    fingers.held.release();
    EXPECT_EQ(fingers.sent, "A<A>");
}

TEST(HeldKey, ComesUpSoonerOnceRepeatsCame)
{
    Fingers fingers;
    fingers.receive("A", 0);
    fingers.receive("A", 599);
    fingers.receive("A", 630);
    fingers.held.advanceTo(fingers.at(729));
    EXPECT_EQ(fingers.sent, "A<A=A=");
    fingers.held.advanceTo(fingers.at(730));
    EXPECT_EQ(fingers.sent, "A<A=A=A>");
    fingers.receive("A", 731);
    fingers.receive("A", 2000);
    EXPECT_EQ(fingers.sent, "A<A=A=A>A<A>A<") << "too late for a repeat, also if nobody looked in between";
}

TEST(HeldKey, ComesUpWhenAnotherArrives)
{
    Fingers fingers;
    fingers.receive("A", 0);
    fingers.receive("Shift A", 1);
    fingers.receive("B", 2);
    EXPECT_EQ(fingers.sent, "A<A>Shift A<Shift A>B<");
    EXPECT_EQ(fingers.held.getEnd(), fingers.at(602)) << "and has its first repeat before it";
    fingers.held.release();
    EXPECT_EQ(fingers.sent, "A<A>Shift A<Shift A>B<B>");
}
}  // namespace Host
