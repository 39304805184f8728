#include "host/run/LiveDisplay.h"

#include <string>

#include "host/terminal/LineOutput.h"
#include "host/terminal/StatusLine.h"

namespace Host
{
void LiveDisplay::addText(const char* text)
{
    std::string lines = text;
    std::erase(lines, '\r');
    standardOutput().write(StatusLine::eraser() + lines);
}
}  // namespace Host
