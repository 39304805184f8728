#include "backend/model/RecordFields.h"

#include <algorithm>
#include <utility>

#include "backend/xml/XmlDocument.h"
#include "backend/xml/XmlWriter.h"

namespace Backend::RecordFields
{
Fields read(const XmlElement& element)
{
    Fields fields;
    for (auto& [name, value] : element.getAttributes()) fields.push_back({std::move(name), std::move(value)});
    forEachElement(element,
                   [&](const XmlElement& child) { valueOf(fields, xmlStartTag(child.getTagName())) += child.toXml(); });
    return fields;
}

Fields read(std::string_view text)
{
    return text.empty() ? Fields{} : read(XmlDocument(text, XmlDocument::Source::text).getRoot());
}

std::string write(std::string_view tag, const Fields& fields)
{
    std::string text = xmlOpenTag(tag);
    std::string children;
    for (const auto& [name, value] : fields) {
        if (name.starts_with('<'))
            children += value;
        else
            text += xmlStringAttribute(name, value);
    }
    return text + xmlCloseOpen() + children + xmlEndTag(tag);
}

std::string& valueOf(Fields& fields, std::string_view name)
{
    const auto found = std::ranges::find(fields, name, &Field::name);
    if (found != fields.end()) return found->value;
    fields.push_back({.name = std::string(name), .value = ""});
    return fields.back().value;
}

Fields differing(const Fields& before, const Fields& after)
{
    Fields changed;
    for (const Field& field : after)
        if (std::ranges::find(before, field) == before.end()) changed.push_back(field);
    for (const auto& [name, value] : before)
        if (std::ranges::find(after, name, &Field::name) == after.end()) changed.push_back({name, ""});
    return changed;
}
}  // namespace Backend::RecordFields
