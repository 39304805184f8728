#include "platform/DbgOutput.h"

#include <windows.h>

#include <cstdio>

#include "platform/windows/Wide.h"

bool hasDebugger() { return IsDebuggerPresent() != 0; }

void writeDebugLine(const std::string& line)
{
    std::fwrite(line.data(), 1, line.size(), stderr);
    std::fflush(stderr);
    OutputDebugStringW(widen(line).c_str());
}
