#pragma once

#include <cstddef>
#include <string>

namespace Host
{
/// The longest name that Orvane can have in the MIDI system, in bytes.
std::size_t longestClientName();

/// Whether Orvane can have that name there.
bool isClientName(const std::string& name);
}  // namespace Host
