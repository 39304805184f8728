#pragma once

#include <string_view>

namespace Host
{
/// True if the text is UTF-8 as Unicode defines it (table 3-7): no overlong forms, no surrogates, nothing above
/// U+10FFFF.
bool isUtf8(std::string_view text);
}  // namespace Host
