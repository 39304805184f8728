#pragma once

#include <string>
#include <vector>

/// The program, with the arguments of its command line in UTF-8. Returns the exit status.
int runProgram(std::vector<std::string> arguments);

/// Shows a line on standard error, or, where the program has none, in a message box.
void showError(const std::string& line);
