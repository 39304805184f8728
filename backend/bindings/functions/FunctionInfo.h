#pragma once

#include <string_view>

namespace Backend
{
/// The names of a function or a translation, on the screen and in files, and its help text.
struct FunctionInfo {
    std::string_view displayName;
    std::string_view typeName;
    int helpId;  ///< see HelpTexts.h

    bool operator==(const FunctionInfo&) const = default;
};
}  // namespace Backend
