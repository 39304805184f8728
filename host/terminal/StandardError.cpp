#include "host/terminal/StandardError.h"

#include <iostream>

#include "host/terminal/StatusLine.h"

namespace Host
{
void reportOnStandardError(const std::string& line)
{
    std::cerr << std::string(StatusLine::eraser()) + "orvane: " + line + "\n";
}
}  // namespace Host
