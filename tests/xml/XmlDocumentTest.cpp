#include <gtest/gtest.h>

#include "tests/stage/System.h"
#include "tests/stage/TemporaryFolder.h"
#include "tests/stage/Text.h"

namespace
{
using namespace std::string_literals;

// Before the first document, so that the debug stream is on.
const bool DEBUGGING = (System::setVariable("ORVANE_DEBUG", "1"), true);

/// What is written to the debug stream when a text is read.
std::string complaintAbout(std::string_view textOrPath, XmlDocument::Source source = XmlDocument::Source::text)
{
    testing::internal::CaptureStderr();
    const bool hasRoot = XmlDocument(textOrPath, source).getRoot().hasElement();
    const std::string complaint = testing::internal::GetCapturedStderr();
    EXPECT_EQ(hasRoot, complaint.empty()) << textOrPath.substr(0, 80);
    return complaint;
}
}  // namespace

TEST(XmlDocument, ReadsAFileOrAText)
{
    const TemporaryFolder folder;
    const std::string name = "\xC3\xA4 program.xml";
    folder.write(name, "\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"utf-8\"?>\r\n<Program name=\"\xC3\x84\"/>\r\n");
    const XmlElement root = XmlDocument((folder / name).string(), XmlDocument::Source::file).getRoot();
    EXPECT_EQ(root.getAttribute("name"), "\xC3\x84");
    EXPECT_EQ(complaintAbout("<!-- x --><?pi?>\n<a/>\n<!-- y -->\n"), "");
    EXPECT_EQ(complaintAbout("<!DOCTYPE a [<!ENTITY b 'c'>]><a/>"), "");
}

TEST(XmlDocument, HasNoRootWhenItDoesNotParse)
{
    for (const char* text : {"", "   \n", "<!-- only -->", "no document", "<a>", "<a><b></a></b>", "<a></a></a>",
                             "<a x=1/>", "<a x='1/>", "<a/><b/>", "<a/>rest", "first<a/>", "<a/><![CDATA[rest]]>",
                             "<a/>&#32;", "<a", "<a/><", "<!-- <a/>", "&lt;a/>"}) {
        EXPECT_NE(complaintAbout(text), "") << text;
        const XmlElement root = rootOf(text);
        EXPECT_FALSE(root.hasElement()) << text;
        EXPECT_EQ(root.getAttribute("x", "default"), "default");
        EXPECT_EQ(root.getChildCount(), 0);
        EXPECT_FALSE(root.begin().hasSiblings());
    }
}

TEST(XmlDocument, ReportsFileLineAndReasonToTheDebugStream)
{
    ASSERT_TRUE(DEBUGGING);
    const TemporaryFolder folder;
    folder.write("a.xml", "<a>\n<b>\n</a>\n");
    const std::string path = (folder / "a.xml").string();
    EXPECT_EQ(complaintAbout(path, XmlDocument::Source::file),
              "orvane: " + path + ", line 3 (byte 10): not read: Start-end tags mismatch\n");
    EXPECT_EQ(complaintAbout("<a/>\n<b/>"),
              "orvane: XML text, line 2 (byte 6): not read: more than one root element\n");
    EXPECT_EQ(complaintAbout("<a>\n\xFF</a>"), "orvane: XML text, line 2 (byte 4): not read: not UTF-8\n");
}

TEST(XmlDocument, ReadsOnlyFiles)
{
    const TemporaryFolder folder;
    const std::string pipe = textOf(folder / "pipe");
    System::makeSpecialFile(pathOf(pipe));
    std::vector<std::string> paths = System::devices();
    paths.insert(paths.end(), {pipe, "", "/nowhere/at/all.xml", "/"});
    for (const std::string& path : paths)
        EXPECT_EQ(complaintAbout(path, XmlDocument::Source::file),
                  "orvane: " + path + ": not read: no file that can be read\n");
}
