#include "host/system/ClientName.h"

namespace Host
{
bool isClientName(const std::string& name)
{
    return !name.empty() && name.size() <= longestClientName() && name.find(':') == std::string::npos;
}
}  // namespace Host
