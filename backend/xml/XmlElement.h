#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace pugi
{
class xml_document;
struct xml_node_struct;
}  // namespace pugi

/// An element of a document, and also a cursor over the child nodes of its parent. Comments, processing instructions
/// and text are positions without an element; white space alone between two tags is none. Without an element, every
/// getter returns its default. Copies share the parsed nodes, which exist as long as any copy does, even without the
/// document. All text is UTF-8.
///
/// To iterate over the children of `parent`, use `forEachElement`, or start with `begin` and call `next` while
/// `hasSiblings` is true and the position is not the child count of `end`.
class XmlElement
{
public:
    /// No element: the root of a document that could not be read, and the end cursor.
    XmlElement() = default;

    bool hasElement() const { return element != nullptr; }

    /// The tag name, empty without an element.
    std::string getTagName() const;

    /// The first attribute of that name, up to its first NUL.
    std::string getAttribute(std::string_view name, std::string_view defaultText = {}) const;

    /// True for "true", "TRUE", "yes" and "YES", false for "false", "FALSE", "no" and "NO", exactly.
    bool getBoolAttribute(std::string_view name, bool defaultValue) const;

    /// The decimal number at the start of the attribute; the default if there is none or it does not fit 32 bits.
    std::int32_t getIntAttribute(std::string_view name, std::int32_t defaultValue) const;

    /// The same for eight bits: the default also for a number outside -128 to 127.
    std::int8_t getByteAttribute(std::string_view name, std::int8_t defaultValue) const;

    /// Names and values of all attributes, in order.
    std::vector<std::pair<std::string, std::string>> getAttributes() const;

    /// The element with all that it contains as a text that reads as the same element, on one line; empty without an
    /// element.
    std::string toXml() const;

    /// The text inside the element and its descendants, in order.
    std::string getText() const;

    /// A cursor at the first child node; the end cursor without an element.
    XmlElement begin() const;
    /// The end cursor, which has the child count of this element.
    XmlElement end() const;
    /// Advances by one node, also beyond the last; returns a copy. A root and an end cursor do not move.
    XmlElement next();

    bool hasSiblings() const { return siblings != nullptr; }
    /// The index among the siblings, -1 for a root and for the end cursor.
    std::int32_t getPosition() const { return position; }
    /// The number of child nodes, 0 without an element.
    std::int32_t getChildCount() const { return childCount; }

private:
    friend class XmlDocument;

    explicit XmlElement(std::shared_ptr<const pugi::xml_document> parsed);
    void enter(pugi::xml_node_struct* atNode);

    std::shared_ptr<const pugi::xml_document> document;  // owns the nodes below
    pugi::xml_node_struct* element = nullptr;
    pugi::xml_node_struct* siblings = nullptr;  // their parent
    pugi::xml_node_struct* node = nullptr;      // of any type, at the position
    std::int32_t position = -1;
    std::int32_t childCount = 0;
};

/// Calls `visit` with each child element of `parent`, in order; other nodes are skipped.
template <class Visitor>
void forEachElement(const XmlElement& parent, Visitor visit)
{
    const XmlElement end = parent.end();
    for (XmlElement child = parent.begin(); child.hasSiblings() && child.getPosition() != end.getChildCount();
         child.next())
        if (child.hasElement()) visit(child);
}
