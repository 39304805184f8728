#include "backend/xml/XmlElement.h"

#include <algorithm>
#include <iterator>
#include <pugixml.hpp>
#include <sstream>
#include <utility>

#include "backend/xml/Text.h"
#include "backend/xml/Words.h"

namespace
{
// Lower case or upper case, not mixed.
constexpr auto TRUTHS = std::to_array<Word<bool>>({{true, "true"},
                                                   {true, "TRUE"},
                                                   {true, "yes"},
                                                   {true, "YES"},
                                                   {false, "false"},
                                                   {false, "no"},
                                                   {false, "FALSE"},
                                                   {false, "NO"}});

std::int32_t countChildren(pugi::xml_node node)
{
    return static_cast<std::int32_t>(std::distance(node.begin(), node.end()));
}

class TextCollector final : public pugi::xml_tree_walker
{
public:
    bool for_each(pugi::xml_node& node) override
    {
        if (node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata) text += node.value();
        return true;
    }

    std::string text;
};
}  // namespace

XmlElement::XmlElement(std::shared_ptr<const pugi::xml_document> parsed) : document(std::move(parsed))
{
    enter(document->document_element().internal_object());
}

void XmlElement::enter(pugi::xml_node_struct* atNode)
{
    const pugi::xml_node entered(atNode);
    node = atNode;
    element = entered.type() == pugi::node_element ? atNode : nullptr;
    childCount = element == nullptr ? 0 : countChildren(entered);
}

std::string XmlElement::getTagName() const { return pugi::xml_node(element).name(); }

std::string XmlElement::getAttribute(std::string_view name, std::string_view defaultText) const
{
    const auto attributes = pugi::xml_node(element).attributes();
    const auto found =
        std::find_if(attributes.begin(), attributes.end(), [&](const auto& row) { return row.name() == name; });
    return found == attributes.end() ? std::string(defaultText) : found->value();
}

bool XmlElement::getBoolAttribute(std::string_view name, bool defaultValue) const
{
    return readWord(TRUTHS, getAttribute(name)).value_or(defaultValue);
}

std::int32_t XmlElement::getIntAttribute(std::string_view name, std::int32_t defaultValue) const
{
    return Text::parseInteger(getAttribute(name)).value_or(defaultValue);
}

std::int8_t XmlElement::getByteAttribute(std::string_view name, std::int8_t defaultValue) const
{
    const std::int32_t number = getIntAttribute(name, defaultValue);
    return std::in_range<std::int8_t>(number) ? static_cast<std::int8_t>(number) : defaultValue;
}

std::vector<std::pair<std::string, std::string>> XmlElement::getAttributes() const
{
    std::vector<std::pair<std::string, std::string>> attributes;
    for (const pugi::xml_attribute& attribute : pugi::xml_node(element).attributes())
        attributes.emplace_back(attribute.name(), attribute.value());
    return attributes;
}

std::string XmlElement::toXml() const
{
    std::ostringstream out;
    pugi::xml_node(element).print(out, "", pugi::format_raw, pugi::encoding_utf8);
    return out.str();
}

std::string XmlElement::getText() const
{
    TextCollector collector;
    pugi::xml_node(element).traverse(collector);
    return std::move(collector.text);
}

XmlElement XmlElement::begin() const
{
    if (element == nullptr) return end();
    XmlElement cursor(*this);
    cursor.siblings = element;
    cursor.position = 0;
    cursor.enter(pugi::xml_node(element).first_child().internal_object());
    return cursor;
}

XmlElement XmlElement::end() const
{
    XmlElement cursor;
    cursor.childCount = childCount;
    return cursor;
}

XmlElement XmlElement::next()
{
    if (position != -1) {
        ++position;
        enter(pugi::xml_node(node).next_sibling().internal_object());
    }
    return *this;
}
