#pragma once

#include <cstddef>
#include <string_view>

#include "platform/Export.h"

/// How many bytes at the start of the text are UTF-8 as Unicode defines it (table 3-7): no overlong forms, no
/// surrogates, nothing above U+10FFFF. The size of the text if it is all UTF-8.
ORV_API std::size_t countUtf8Bytes(std::string_view text);

inline bool isUtf8(std::string_view text) { return countUtf8Bytes(text) == text.size(); }
