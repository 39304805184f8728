#pragma once

#include <cstddef>
#include <optional>

namespace Host
{
/// The columns of the terminal that standard output is, where it processes escape sequences; none for another output.
std::optional<std::size_t> terminalWidth();
}  // namespace Host
