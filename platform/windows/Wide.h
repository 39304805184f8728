#pragma once

#include <string>
#include <string_view>
#include <system_error>

/// Text is UTF-8 inside and UTF-16 in calls of the system. What is not valid becomes U+FFFD.
std::wstring widen(std::string_view text);
std::string narrow(std::wstring_view text);

/// The error of the last call of the system on this thread; the usual ones as `std::errc`.
std::error_code lastError();

/// A sentence of the system without its line end, for messages.
std::string describe(unsigned long systemError);
