#pragma once

#include "backend/files/version2/Lines.h"
#include "backend/files/version2/Sections.h"

namespace Backend::Version2
{
/// Reads blocks, separated by blank lines, up to a line that begins no block, or the end. The first letter of a block
/// names its section, and each line of the block that begins with it is an entry. The entries are described at the
/// functions that read them.
void readBlocks(Lines& lines, Sections& sections);
}  // namespace Backend::Version2
