#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "host/performance/PerformanceCommand.h"
#include "host/performance/PerformanceLine.h"

namespace Host
{
/// One command without a time, as it is read from standard input while playing; none for an empty line or a comment.
/// A carriage return at the end is tolerated. Throws InputError beginning with `where`, such as "standard input:3", if
/// the line cannot be understood or its command is not available yet.
std::optional<Command> parseCommand(std::string_view text, const std::string& where);

/// The same of what is left of a line, which must not be empty.
Command parseCommand(PerformanceLine& line);
}  // namespace Host
