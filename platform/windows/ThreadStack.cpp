#include "platform/ThreadStack.h"

// A stack takes address space only, 2 MiB for each thread, and memory as it is used.
void setThreadStack(std::size_t) {}
