#include "backend/files/BankScanner.h"

#include <gtest/gtest.h>

using namespace Backend;

namespace
{
/// The elements that are found, separated by bars, and the root's end.
std::string scan(std::string_view text)
{
    const auto layout = scanElements(text, "Program");
    if (!layout) return "none";
    std::string all;
    for (const TextSpan& span : layout->elements) all += std::string(span.of(text)) + "|";
    return all + layout->rootName + std::string(layout->rootEnd.of(text));
}
}  // namespace

TEST(BankScanner, FindsTheProgramsHoweverTheFileIsWritten)
{
    const std::string_view rows[][2] = {
        {"<Bank>\r\n<Program name=\"a\">\r\n</Program>\r\n</Bank>\r\n",
         "<Program name=\"a\">\r\n</Program>|Bank</Bank>"},
        {"<Bank><Program/><Program ></Program></Bank>", "<Program/>|<Program ></Program>|Bank</Bank>"},
        {"<?xml?><!--<Bank><Program>--><Bank/>", "Bank/>"},
        {"<B><!-- <Program > --><Program\n/></B >", "<Program\n/>|B</B >"},
        {"<B><Program n='<Program a=\"/>'>x</Program></B>", "<Program n='<Program a=\"/>'>x</Program>|B</B>"},
        {"<B><Program n=\"</Program>'\"/></B>", "<Program n=\"</Program>'\"/>|B</B>"},
        {"<B><Program><Program/></Program></B>", "<Program><Program/></Program>|B</B>"},
        {"<B><Other><Program/></Other><Programs/><program/></B>", "B</B>"},
        {"<B><![CDATA[<Program>]]><Program><![CDATA[</Program>]]></Program></B>",
         "<Program><![CDATA[</Program>]]></Program>|B</B>"},
        {"<!DOCTYPE B [<!ENTITY p \"<Program>\"><!-- ]> -->]><B><Program/></B>", "<Program/>|B</B>"},
        {"<B><?p <Program> ?></B>\n<!-- the end -->\n", "B</B>"},
    };
    for (const auto& [text, found] : rows) EXPECT_EQ(scan(text), found) << text;
}

TEST(BankScanner, FindsNothingWhereTheTagsDoNotAddUp)
{
    for (const std::string_view text :
         {"", "text", "<", "<B", "<B><Program>", "<B><Program></B>", "<B></B></B>", "</B>", "<B/><B/>", "<B a='></B>",
          "<!--<B/>", "<B><![CDATA[</B>", "<?<B/>", "<B><!DOCTYPE x></B>", "<!DOCTYPE [<B/>", "<!DOCTYPE 'a><B/>"})
        EXPECT_EQ(scan(text), "none") << text;
}
