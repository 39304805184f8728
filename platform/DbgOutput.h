#pragma once

#include <string>

/// Whether a debugger of the system shows lines that are written to it.
bool hasDebugger();

/// Writes a line to standard error, and to the debugger where the system has such a stream. Any thread.
void writeDebugLine(const std::string& line);
