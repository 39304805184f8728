// Any bytes are read as a document with a root or without one, never more. Every element can be asked everything, and
// what it answers is UTF-8.
#include "backend/xml/XmlDocument.h"
#include "backend/xml/XmlWriter.h"
#include "fuzz/Fuzzing.h"
#include "platform/Utf8.h"

namespace
{
void checkWritesBack(const std::string& text)
{
    // White space other than blanks becomes blanks in an attribute: so XML wants it.
    if (text.find_first_of("\t\n\r") != std::string::npos) return;
    const std::string element = xmlOpenTag("a") + xmlStringAttribute("x", text) + xmlCloseEmpty();
    require(XmlDocument(element, XmlDocument::Source::text).getRoot().getAttribute("x") == text);
}

void checkElement(const XmlElement& element, int level)
{
    require(level <= XmlDocument::MAX_NESTING && element.hasElement() && isUtf8(element.getTagName()));
    const std::string text = element.getAttribute("x", "default");
    require(isUtf8(text) && isUtf8(element.getText()));
    checkWritesBack(text);
    element.getBoolAttribute("x", true);
    element.getIntAttribute("x", 7);

    std::int32_t positions = 0;
    const XmlElement end = element.end();
    for (XmlElement cursor = element.begin(); cursor.hasSiblings() && cursor.getPosition() != end.getChildCount();
         cursor.next(), ++positions)
        if (cursor.hasElement()) checkElement(cursor, level + 1);
    require(positions == element.getChildCount());
}
}  // namespace

void tryInput(std::string_view text)
{
    const XmlElement root = XmlDocument(text, XmlDocument::Source::text).getRoot();
    require(!root.hasSiblings());
    if (root.hasElement()) checkElement(root, 1);
}
