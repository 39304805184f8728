#pragma once

#include <string>

#include "platform/Export.h"

/// Opens a document with the desktop's program for it, and does not wait for that program. Returns an empty text, or a
/// clause that says why it cannot be opened: "xdg-open is not installed".
ORV_API std::string openDocument(const std::string& path);
