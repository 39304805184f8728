#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

/// The code of the key with exactly that name in a stored setting; nothing for a name that is not read.
std::optional<std::int32_t> readKeyName(std::string_view name);

/// The name under which a key is shown and stored; nothing for a code without a name.
std::optional<std::string_view> printKeyName(std::int32_t keyCode);
