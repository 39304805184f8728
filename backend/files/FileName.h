#pragma once

#include <string_view>

#include "platform/Export.h"

namespace Backend
{
/// Whether a file in a folder can have this name, followed by an extension of up to four characters: not empty, not "."
/// or "..", no slash or backslash, no control character, at most 251 bytes. Other programs may write files with any
/// such name.
ORV_API bool staysInFolder(std::string_view name);

/// Whether the user may give a file this name: besides, without the blanks on both sides, it must have none of the
/// characters \ / : * ? " < > |, so that every system accepts it.
ORV_API bool isValidFileName(std::string_view name);
}  // namespace Backend
