#include "platform/DbgStream.h"

#include <cstdlib>
#include <string_view>

#include "platform/DbgOutput.h"

namespace WindowsLib
{
bool DbgStream::isEnabled()
{
    static const bool enabled = [] {
        const char* wanted = std::getenv("ORVANE_DEBUG");
        return (wanted != nullptr && std::string_view(wanted) == "1") || hasDebugger();
    }();
    return enabled;
}

DbgStream::~DbgStream()
{
    if (isEnabled()) writeDebugLine("orvane: " + line.str() + "\n");
}
}  // namespace WindowsLib
