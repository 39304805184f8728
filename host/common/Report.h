#pragma once

#include <functional>
#include <string>

namespace Host
{
/// Shows a line to the user. May be called on any thread.
using Report = std::function<void(const std::string&)>;
}  // namespace Host
