#pragma once

#include "backend/files/version2/Lines.h"
#include "backend/files/version2/Sections.h"

namespace Backend::Version2
{
/// Reads blocks, blank lines between them or not, up to a line that begins none, or the end: each line is an entry of
/// the section that its first letter names. What the entries look like stands with their readers.
void readBlocks(Lines& lines, Sections& sections);
}  // namespace Backend::Version2
