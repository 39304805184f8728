#include "host/terminal/StandardError.h"

#include "host/terminal/LineOutput.h"
#include "host/terminal/StatusLine.h"

namespace Host
{
void reportOnStandardError(const std::string& line)
{
    standardError().write(std::string(StatusLine::eraser()) + "orvane: " + line + "\n");
}
}  // namespace Host
