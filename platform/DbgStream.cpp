#include "platform/DbgStream.h"

#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace WindowsLib
{
bool DbgStream::isEnabled()
{
    static const bool enabled = [] {
        const char* wanted = std::getenv("ORVANE_DEBUG");
        return wanted != nullptr && std::string_view(wanted) == "1";
    }();
    return enabled;
}

DbgStream::~DbgStream()
{
    if (!isEnabled()) return;
    const std::string whole = "orvane: " + line.str() + "\n";
    std::fwrite(whole.data(), 1, whole.size(), stderr);
}
}  // namespace WindowsLib
