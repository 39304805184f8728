#pragma once

#include "backend/files/version2/Lines.h"
#include "backend/files/version2/Sections.h"

namespace Backend::Version2
{
/// Reads blocks, with blank lines between them, up to a line that begins none, or the end. The first letter of a block
/// names its section, and each line of it that begins so is an entry. What the entries look like stands with their
/// readers.
void readBlocks(Lines& lines, Sections& sections);
}  // namespace Backend::Version2
