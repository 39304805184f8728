#pragma once

#include <memory>
#include <string_view>

#include "backend/model/Function.h"

namespace Backend::FunctionManagement
{
/// A function of that type name with the parameters a picker starts from; null for an unknown name and for
/// NO_FUNCTION.
ORV_API std::unique_ptr<Function> createFunction(std::string_view typeName, OrvIF& orv);

/// A function from its element, whose missing attributes have the defaults of files; null as above.
ORV_API std::unique_ptr<Function> createFunctionFromXml(const XmlElement& element, OrvIF& orv);

/// Whether those two make functions of that type name.
ORV_API bool isFunctionType(std::string_view typeName);
}  // namespace Backend::FunctionManagement
