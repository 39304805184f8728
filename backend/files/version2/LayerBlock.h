#pragma once

#include "backend/files/version2/Sections.h"
#include "backend/files/version2/Words.h"

namespace Backend::Version2
{
/// Reads the words after the first of a layer's line. False if they are not understood; then nothing is added.
bool readLayer(Words& words, Sections& sections);
}  // namespace Backend::Version2
