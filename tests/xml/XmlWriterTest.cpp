#include "backend/xml/XmlWriter.h"

#include <gtest/gtest.h>

#include "backend/xml/XmlDocument.h"
#include "tests/values/ValueTypes.h"

TEST(XmlWriter, FormatsEachPieceExactly)
{
    EXPECT_EQ(xmlHeader(), "<?xml version=\"1.0\" encoding=\"utf-8\"?>");
    EXPECT_EQ(xmlOpenTag("Key"), "<Key");
    EXPECT_EQ(xmlStartTag("Key"), "<Key>");
    EXPECT_EQ(xmlCloseOpen(), ">");
    EXPECT_EQ(xmlCloseEmpty(), "/>");
    EXPECT_EQ(xmlEndTag("Key"), "</Key>");
    EXPECT_EQ(xmlBoolAttribute("global", true), " global=\"true\"");
    EXPECT_EQ(xmlBoolAttribute("global", false), " global=\"false\"");
    EXPECT_EQ(xmlCharAttribute("zone", 65), " zone=\"65\"");
    EXPECT_EQ(xmlCharAttribute("zone", -128), " zone=\"-128\"");
    EXPECT_EQ(xmlShortAttribute("pulse", -32768), " pulse=\"-32768\"");
    EXPECT_EQ(xmlIntAttribute("pulse", -2147483647 - 1), " pulse=\"-2147483648\"");
    EXPECT_EQ(xmlItemAttribute("value", RelativeFixedValue{true, 5}), " value=\"+5\"");
    EXPECT_EQ(xmlItemAttribute("value", RelativeFixedValue{true, 0}), " value=\"\"");
}

TEST(XmlWriter, EscapesFiveCharactersAndPassesTheRest)
{
    EXPECT_EQ(xmlEscape("a<b&\"c'>"), "a&lt;b&amp;&quot;c&apos;&gt;");
    EXPECT_EQ(xmlStringAttribute("name", "a<b&\"c'"), " name=\"a&lt;b&amp;&quot;c&apos;\"");
    EXPECT_EQ(xmlEscape("\xC3\xA4\t&amp;"), "\xC3\xA4\t&amp;amp;");
}

TEST(XmlWriter, WritesAnyNameSoThatItReadsBack)
{
    for (const std::string name : {"Gr\xC3\xBC\xC3\x9F Gott", "<&>\"'", "&lt;", "\xF0\x9F\x8E\xB9", "]]>", "--", ""}) {
        const std::string text = xmlHeader() + "\n" + xmlOpenTag("Program") + xmlStringAttribute("name", name) +
                                 xmlCloseOpen() + "\n" + xmlEndTag("Program") + "\n";
        EXPECT_EQ(XmlDocument(text, XmlDocument::Source::text).getRoot().getAttribute("name", "none"), name);
    }
}

template <class... Values>
constexpr bool areItems(std::tuple<Values...>*)
{
    return (XmlItem<Values> && ...);
}
static_assert(areItems(static_cast<ValueTypes*>(nullptr)), "every value can stand in an attribute");
static_assert(!XmlItem<int>);
