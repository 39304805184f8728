#include "host/run/Tell.h"

#include <iostream>

#include "host/run/StatusLine.h"

namespace Host
{
void tellOnStandardError(const std::string& line)
{
    std::cerr << std::string(StatusLine::eraser()) + "orvane: " + line + "\n";
}
}  // namespace Host
