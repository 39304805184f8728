#pragma once

#include <string>

#include "platform/Export.h"

/// Opens a document with the program that the user's desktop has for it, and does not wait for it. False, with a line
/// on the debug stream, if the desktop offers no way.
ORV_API bool openDocument(const std::string& path);
