#pragma once

#include <memory>
#include <string_view>

#include "backend/model/Function.h"

namespace Backend::FunctionManagement
{
/// A function of that type name, with the parameters that a picker starts with; null for an unknown name and for
/// NO_FUNCTION.
ORV_API std::unique_ptr<Function> createFunction(std::string_view typeName, OrvIF& orv);

/// A function from its element; missing attributes have the defaults of files. Null as above.
ORV_API std::unique_ptr<Function> createFunctionFromXml(const XmlElement& element, OrvIF& orv);

/// Whether functions of that type name can be made.
ORV_API bool isFunctionType(std::string_view typeName);
}  // namespace Backend::FunctionManagement
