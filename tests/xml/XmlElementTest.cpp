#include "backend/xml/XmlElement.h"

#include <gtest/gtest.h>

#include "tests/stage/Text.h"

namespace
{
/// The walk over the children, a tag for each position, "-" where there is no element.
std::string walk(const XmlElement& parent)
{
    std::string tags;
    const XmlElement end = parent.end();
    for (XmlElement cursor = parent.begin(); cursor.hasSiblings() && cursor.getPosition() != end.getChildCount();
         cursor.next())
        tags += cursor.hasElement() ? cursor.getTagName() + " " : "- ";
    return tags;
}
}  // namespace

TEST(XmlElement, CountsCommentsInstructionsAndTextAsPositionsButNotWhiteSpace)
{
    EXPECT_EQ(walk(rootOf("<Bank><Program/><!-- one --><Program/></Bank>")), "Program - Program ");
    EXPECT_EQ(walk(rootOf("<Bank>\n\t<Program/>\r\n \t<Layer/>\n</Bank>")), "Program Layer ");
    EXPECT_EQ(walk(rootOf("<a>text<b/><?pi x?><![CDATA[c]]>&#32;</a>")), "- b - - - ");
    EXPECT_EQ(walk(rootOf("<a/>")), "");
    EXPECT_EQ(walk(rootOf("<a>\n</a>")), "");
    EXPECT_EQ(walk(XmlElement()), "");

    std::string elements;
    forEachElement(rootOf("<a><!-- x --><b/>text<c><d/></c></a>"),
                   [&](const XmlElement& child) { elements += child.getTagName(); });
    EXPECT_EQ(elements, "bc");
}

TEST(XmlElement, IsACursorOverItsSiblings)
{
    const XmlElement root = rootOf("<a><b><c/><d/></b><!-- x --></a>");
    EXPECT_FALSE(root.hasSiblings());
    EXPECT_EQ(root.getPosition(), -1);
    EXPECT_EQ(root.getChildCount(), 2);

    XmlElement cursor = root.begin();
    EXPECT_TRUE(cursor.hasSiblings());
    EXPECT_EQ(cursor.getPosition(), 0);
    EXPECT_EQ(cursor.getChildCount(), 2);

    const XmlElement copy = cursor.next();
    for (const XmlElement* comment : {&copy, static_cast<const XmlElement*>(&cursor)}) {
        EXPECT_FALSE(comment->hasElement());
        EXPECT_EQ(comment->getTagName(), "");
        EXPECT_EQ(comment->getPosition(), 1);
        EXPECT_EQ(comment->getChildCount(), 0);
    }
    EXPECT_EQ(cursor.next().getPosition(), 2);
    EXPECT_EQ(cursor.next().getPosition(), 3);
    EXPECT_FALSE(cursor.hasElement());
    EXPECT_EQ(cursor.end().getPosition(), -1);
}

TEST(XmlElement, EndAndRootStayWhereTheyAre)
{
    XmlElement root = rootOf("<a><b/><c/></a>");
    EXPECT_EQ(root.next().getTagName(), "a");
    XmlElement end = root.end();
    EXPECT_EQ(end.getChildCount(), 2);
    end.next();
    EXPECT_EQ(end.getPosition(), -1);
    EXPECT_FALSE(end.hasElement() || end.hasSiblings());
    EXPECT_FALSE(end.begin().hasSiblings()) << "nothing begins where there is no element";
}

TEST(XmlElement, ReadsAttributes)
{
    const XmlElement root = rootOf(R"(<a name="&lt;&#65;&quot;" twice="1" twice="2" empty=""/>)");
    EXPECT_EQ(root.getAttribute("name"), "<A\"");
    EXPECT_EQ(root.getAttribute("twice"), "1");
    EXPECT_EQ(root.getAttribute("empty", "default"), "");
    EXPECT_EQ(root.getAttribute("absent", "default"), "default");
    EXPECT_EQ(root.getAttribute("Name"), "");
    EXPECT_EQ(XmlElement().getAttribute("name", "default"), "default");
}

TEST(XmlElement, ReadsABoolInLowerOrUpperCaseOnly)
{
    const auto read = [](const std::string& text, bool defaultValue) {
        return rootOf("<a x=\"" + text + "\"/>").getBoolAttribute("x", defaultValue);
    };
    for (const char* text : {"true", "TRUE", "yes", "YES"}) EXPECT_TRUE(read(text, false)) << text;
    for (const char* text : {"false", "FALSE", "no", "NO"}) EXPECT_FALSE(read(text, true)) << text;
    for (const char* text : {"Yes", "True", "1", "", " true", "on"})
        for (const bool defaultValue : {false, true}) EXPECT_EQ(read(text, defaultValue), defaultValue) << text;
    EXPECT_TRUE(rootOf("<a/>").getBoolAttribute("x", true));
    EXPECT_FALSE(XmlElement().getBoolAttribute("x", false));
}

TEST(XmlElement, ReadsADecimalNumberOrTheDefault)
{
    const std::pair<std::string, int> rows[] = {
        {"-1", -1},         {"12abc", 12}, {" +7 ", 7}, {"010", 10}, {"0x10", 0}, {"2147483647", 2147483647},
        {"2147483648", 99}, {"", 99},      {"abc", 99}, {"- 1", 99}, {"--1", 99}};
    for (const auto& [text, number] : rows)
        EXPECT_EQ(rootOf("<a x=\"" + text + "\"/>").getIntAttribute("x", 99), number) << text;
    EXPECT_EQ(rootOf("<a/>").getIntAttribute("x", 99), 99);
    for (const auto& [text, number] : {std::pair{"127", 127}, {"-128", -128}, {"128", 99}, {"300", 99}, {"-999", 99}})
        EXPECT_EQ(rootOf(std::string("<a x=\"") + text + "\"/>").getByteAttribute("x", 99), number) << text;
    EXPECT_EQ(XmlElement().getIntAttribute("x", 99), 99);
}

TEST(XmlElement, GathersItsText)
{
    EXPECT_EQ(rootOf("<a>one <b>two</b><!-- no --><![CDATA[ <3>]]>\r\nfour</a>").getText(), "one two <3>\nfour");
    EXPECT_EQ(rootOf("<a><b/></a>").getText(), "");
    EXPECT_EQ(XmlElement().getText(), "");
}

TEST(XmlElement, OutlivesItsDocument)
{
    const XmlElement child = rootOf("<a><b name='x'><c/></b></a>").begin();
    EXPECT_EQ(child.getAttribute("name"), "x");
    EXPECT_EQ(walk(child), "c ");
}
