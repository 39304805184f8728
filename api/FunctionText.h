#pragma once

#include <string>
#include <string_view>

#include "platform/Export.h"

namespace Backend::FunctionManagement
{
/// The result of checking a text that should be the element of a function, such as `<ChangeTempo value="+10"/>`.
struct FunctionText {
    std::string problem{};   ///< why it is not XML, empty if it is
    std::string typeName{};  ///< of the element
    bool isFunction = false;

    /// Any thread. No backend is needed, so that a file can be refused before anything plays.
    ORV_API static FunctionText check(std::string_view xml);
};
}  // namespace Backend::FunctionManagement
