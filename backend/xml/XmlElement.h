#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace pugi
{
class xml_document;
struct xml_node_struct;
}  // namespace pugi

/// An element of a document that was read, and at once a cursor over the child nodes of its parent. Comments,
/// processing instructions and text count as positions, where the cursor holds no element; white space alone between
/// two tags does not. Nothing here fails: without an element every question has its default answer. A copy shares the
/// parsed nodes, and they live as long as anyone holds them, also without the document. All text is UTF-8.
///
/// The walk over the children of `parent` is `forEachElement`, or by hand: from `begin` on, while `hasSiblings` and the
/// position is not the child count of `end`.
class XmlElement
{
public:
    /// No element, outside any list: what a bad document has for a root, and what an end cursor is.
    XmlElement() = default;

    bool hasElement() const { return element != nullptr; }

    /// The tag, empty without an element.
    std::string getTagName() const;

    /// The first attribute of that name, up to its first NUL.
    std::string getAttribute(std::string_view name, std::string_view defaultText = {}) const;

    /// True for "true", "TRUE", "yes" and "YES", false for "false", "FALSE", "no" and "NO", exactly.
    bool getBoolAttribute(std::string_view name, bool defaultValue) const;

    /// The decimal number at the start of the attribute; the default if there is none or it does not fit 32 bits.
    std::int32_t getIntAttribute(std::string_view name, std::int32_t defaultValue) const;

    /// The same for a field of eight bits: the default also for a number outside -128 to 127.
    std::int8_t getByteAttribute(std::string_view name, std::int8_t defaultValue) const;

    /// All the text inside the element and the elements inside it, in order.
    std::string getText() const;

    /// A cursor at the first child node, an end cursor without an element.
    XmlElement begin() const;
    /// An end cursor, which has this element's child count.
    XmlElement end() const;
    /// Moves on by one node, also past the last; returns a copy. A root and an end cursor stay.
    XmlElement next();

    bool hasSiblings() const { return siblings != nullptr; }
    /// The index among the siblings, -1 for a root and for an end cursor.
    std::int32_t getPosition() const { return position; }
    /// The child nodes of the element, 0 without one.
    std::int32_t getChildCount() const { return childCount; }

private:
    friend class XmlDocument;

    explicit XmlElement(std::shared_ptr<const pugi::xml_document> parsed);
    void enter(pugi::xml_node_struct* atNode);

    std::shared_ptr<const pugi::xml_document> document;  // keeps what the pointers below point to
    pugi::xml_node_struct* element = nullptr;
    pugi::xml_node_struct* siblings = nullptr;  // their parent
    pugi::xml_node_struct* node = nullptr;      // of any kind, at the position
    std::int32_t position = -1;
    std::int32_t childCount = 0;
};

/// Calls `visit` with each child element of `parent`, in order, and passes over all other nodes.
template <class Visitor>
void forEachElement(const XmlElement& parent, Visitor visit)
{
    const XmlElement end = parent.end();
    for (XmlElement child = parent.begin(); child.hasSiblings() && child.getPosition() != end.getChildCount();
         child.next())
        if (child.hasElement()) visit(child);
}
