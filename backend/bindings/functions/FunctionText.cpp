#include "api/FunctionText.h"

#include <pugixml.hpp>

#include "backend/bindings/functions/FunctionFactories.h"
#include "backend/model/Function.h"
#include "backend/xml/XmlParser.h"

namespace Backend::FunctionManagement
{
FunctionText FunctionText::check(std::string_view xml)
{
    pugi::xml_document document;
    if (const auto problem = parseXml(xml, document)) return {.problem = problem->reason};
    const std::string name = document.document_element().name();
    return {.typeName = name, .isFunction = isFunctionType(name)};
}
}  // namespace Backend::FunctionManagement
