#pragma once

#include <functional>
#include <string>

namespace Host
{
/// Takes a line for the user. Any thread.
using Report = std::function<void(const std::string&)>;

/// On standard error, behind the program's name.
void reportOnStandardError(const std::string& line);
}  // namespace Host
