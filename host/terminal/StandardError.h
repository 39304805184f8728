#pragma once

#include <string>

namespace Host
{
/// Writes "orvane: " and the line to standard error. A status line on the same terminal is erased first. Any thread.
void reportOnStandardError(const std::string& line);
}  // namespace Host
