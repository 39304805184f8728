#pragma once

#include <string>
#include <string_view>

#include "platform/Export.h"

namespace Backend::FunctionManagement
{
/// What a text is that should be the element of a function, such as `<ChangeTempo value="+10"/>`.
struct FunctionText {
    std::string problem{};   ///< why it is no XML, empty if it is
    std::string typeName{};  ///< of the element
    bool isFunction = false;

    /// Any thread. Needs no backend, so that a file can be refused before anything plays.
    ORV_API static FunctionText check(std::string_view xml);
};
}  // namespace Backend::FunctionManagement
