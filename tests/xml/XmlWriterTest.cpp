#include "backend/xml/XmlWriter.h"

#include <gtest/gtest.h>

#include "backend/values/RelativeFixedValue.h"
#include "tests/stage/Text.h"

TEST(XmlWriter, WritesNumbersAndValuesInWholeAttributes)
{
    EXPECT_EQ(xmlBoolAttribute("global", false), " global=\"false\"");
    EXPECT_EQ(xmlCharAttribute("zone", 65), " zone=\"65\"");
    EXPECT_EQ(xmlCharAttribute("zone", -128), " zone=\"-128\"");
    EXPECT_EQ(xmlShortAttribute("pulse", -32768), " pulse=\"-32768\"");
    EXPECT_EQ(xmlIntAttribute("pulse", -2147483647 - 1), " pulse=\"-2147483648\"");
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
        EXPECT_EQ(rootOf(text).getAttribute("name", "none"), name);
    }
}
