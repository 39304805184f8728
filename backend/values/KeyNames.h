#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

/// The code of the key that exactly `name` stands for in a stored setting, none for a name that is not read.
std::optional<std::int32_t> readKeyName(std::string_view name);

/// The name under which a key is shown and stored, none for a code without a name.
std::optional<std::string_view> printKeyName(std::int32_t keyCode);
