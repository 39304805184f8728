#pragma once

#include <string_view>

#include "platform/Export.h"

namespace Backend
{
/// Whether a file in a folder can have this name (followed by an extension of up to four characters): not empty, not
/// "." or "..", no slash or backslash, no control character, at most 251 bytes. What other programs put there may be
/// called like that.
ORV_API bool staysInFolder(std::string_view name);

/// Whether the user may call something so that becomes a file on any system: besides, without the blanks on both
/// sides, it has none of \ / : * ? " < > |
ORV_API bool isValidFileName(std::string_view name);
}  // namespace Backend
