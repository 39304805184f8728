#pragma once

#include <string_view>

namespace Backend
{
/// How a function or a translation is called: on the screen, in files, and where its explanation stands.
struct FunctionInfo {
    std::string_view displayName;
    std::string_view typeName;
    int helpId;  ///< see HelpTexts.h

    bool operator==(const FunctionInfo&) const = default;
};
}  // namespace Backend
