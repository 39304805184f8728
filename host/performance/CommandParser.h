#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "host/performance/PerformanceCommand.h"
#include "host/performance/PerformanceLine.h"

namespace Host
{
/// Parses one command without a time, as it is read from standard input during live playing; none for an empty line or
/// a comment. A carriage return at the end is ignored. Throws InputError beginning with `where`, such as "standard
/// input:3", if the line is not a command.
std::optional<Command> parseCommand(std::string_view text, const std::string& where);

/// The same for the rest of a line, which must not be empty.
Command parseCommand(PerformanceLine& line);
}  // namespace Host
