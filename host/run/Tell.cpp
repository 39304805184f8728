#include "host/run/Tell.h"

#include <iostream>

namespace Host
{
void tellOnStandardError(const std::string& line) { std::cerr << "orvane: " + line + "\n"; }
}  // namespace Host
