// Documents that are to do harm cost little and have no root, or mean nothing.
#include <gtest/gtest.h>

#include "platform/Utf8.h"
#include "tests/stage/Text.h"

namespace
{
using namespace std::string_literals;

std::string repeat(std::string_view piece, std::size_t times)
{
    std::string text;
    for (; times > 0; --times) text += piece;
    return text;
}

std::string nested(std::size_t levels) { return repeat("<a>", levels) + repeat("</a>", levels); }
}  // namespace

TEST(HostileXml, MayNestSoDeepAndNoDeeper)
{
    const std::size_t deepest = XmlDocument::MAX_NESTING;
    EXPECT_TRUE(rootOf(nested(deepest)).hasElement());
    EXPECT_FALSE(rootOf(nested(deepest + 1)).hasElement());
    EXPECT_FALSE(rootOf(nested(300'000)).hasElement());
    EXPECT_FALSE(rootOf(repeat("<a>", 500'000)).hasElement());
}

TEST(HostileXml, MayBeSoLargeAndNoLarger)
{
    const auto withAttributeOf = [](std::size_t size) { return "<a x=\"" + std::string(size, 'x') + "\"/>"; };
    const std::size_t largest = XmlDocument::MAX_SIZE - withAttributeOf(0).size();
    EXPECT_EQ(rootOf(withAttributeOf(largest)).getAttribute("x").size(), largest);
    EXPECT_FALSE(rootOf(withAttributeOf(largest + 1)).hasElement());
    EXPECT_EQ(rootOf("<a>" + repeat("<b/>", 300'000) + "</a>").getChildCount(), 300'000);
}

TEST(HostileXml, NeverExpandsEntitiesOfItsOwn)
{
    const XmlElement root = rootOf(
        "<!DOCTYPE a [<!ENTITY b \"xxxx\"><!ENTITY c \"&b;&b;\"><!ENTITY d SYSTEM \"file:///etc/passwd\">]>"
        "<a x=\"&c;\" y=\"&d;\">&c;&d;</a>");
    EXPECT_EQ(root.getAttribute("x"), "&c;");
    EXPECT_EQ(root.getAttribute("y"), "&d;");
    EXPECT_EQ(root.getText(), "&c;&d;");
    EXPECT_FALSE(rootOf("<!DOCTYPE a " + repeat("[<!", 500'000)).hasElement());
}

TEST(HostileXml, IsRefusedWhenItIsNotText)
{
    for (const std::string& text :
         {"<a/>\0"s, "<a/>\0<b/>"s, "<a x=\"\0\"/>"s, "\0"s, "<a>\xE4</a>"s, "\xFF\xFE<\0a\0/\0>\0"s,
          "<a>\xED\xA0\x80</a>"s, "<a x='&#xD800;'/>"s, "<a>&#x110000;</a>"s,
          "\x7F"
          "ELF\x02\x01\x01"s})
        EXPECT_FALSE(rootOf(text).hasElement()) << text;
    EXPECT_EQ(rootOf("<a x='b&#0;c'/>").getAttribute("x"), "b") << "a text ends at its first NUL";
}

TEST(Utf8, IsWhatUnicodeDefines)
{
    for (const std::string_view text : {"", "a", "\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xED\x9F\xBF", "\xEE\x80\x80",
                                        "\xEF\xBF\xBF", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"})
        EXPECT_TRUE(isUtf8(text));
    for (const std::string_view text :
         {"\x80", "\xC1\xBF", "\xC2", "\xC2 ", "\xE0\x9F\xBF", "\xE0\xA0", "\xED\xA0\x80", "\xF0\x8F\xBF\xBF",
          "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xF8\x88\x80\x80\x80", "\xFF"})
        EXPECT_EQ(countUtf8Bytes("ab" + std::string(text)), 2u);
}
