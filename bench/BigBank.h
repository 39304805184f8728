#pragma once

#include <string>

/// A bank of a thousand programs of the usual size, with 75 keys, 13 controls and 4 layers each: 22 MB.
namespace BigBank
{
constexpr int PROGRAMS = 1000;

/// The `Program` element of that number, with its line end.
std::string program(int number);

/// Writes the bank.
void write(const std::string& path);
}  // namespace BigBank
