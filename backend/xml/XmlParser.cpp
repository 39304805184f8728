#include "backend/xml/XmlParser.h"

#include <new>
#include <pugixml.hpp>

#include "backend/xml/XmlDocument.h"
#include "platform/Utf8.h"

namespace
{
// Text outside the root is parsed so that it can be refused; white space alone never is.
constexpr unsigned FLAGS = pugi::parse_default | pugi::parse_comments | pugi::parse_pi | pugi::parse_fragment;

/// Visits the whole tree, without recursion, and finds the first thing that the parser accepts and we do not.
class Inspector final : public pugi::xml_tree_walker
{
public:
    bool for_each(pugi::xml_node& node) override
    {
        if (const char* reason = refuse(node))
            problem = {reason, static_cast<std::size_t>(std::max<std::ptrdiff_t>(node.offset_debug(), 0))};
        return !problem;
    }

    std::optional<XmlProblem> problem;

private:
    const char* refuse(const pugi::xml_node& node)
    {
        const bool isText = node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata;
        if (depth() == 0 && isText) return "text outside the root element";
        if (depth() == 0 && node.type() == pugi::node_element && roots++ > 0) return "more than one root element";
        if (depth() >= XmlDocument::MAX_NESTING) return "elements nested too deep";
        return hasOnlyCharacters(node) ? nullptr : "a reference to an invalid character";
    }

    static bool hasOnlyCharacters(const pugi::xml_node& node)
    {
        if (!isUtf8(node.value())) return false;
        for (const auto& attribute : node.attributes())
            if (!isUtf8(attribute.value())) return false;
        return true;
    }

    int roots = 0;
};
}  // namespace

std::optional<XmlProblem> parseXml(std::string_view text, pugi::xml_document& document)
{
    if (text.size() > XmlDocument::MAX_SIZE) return XmlProblem{"larger than any setup", XmlDocument::MAX_SIZE};
    if (const auto nul = text.find('\0'); nul != std::string_view::npos) return XmlProblem{"a NUL byte", nul};
    if (!isUtf8(text)) return XmlProblem{"not UTF-8", countUtf8Bytes(text)};

    const auto result = document.load_buffer(text.data(), text.size(), FLAGS, pugi::encoding_utf8);
    if (result.status == pugi::status_out_of_memory) throw std::bad_alloc();
    if (!result) return XmlProblem{result.description(), static_cast<std::size_t>(result.offset)};
    if (!document.document_element()) return XmlProblem{"no root element", text.size()};

    Inspector inspector;
    document.traverse(inspector);
    return inspector.problem;
}
