#include "platform/Path.h"

#include "platform/windows/Wide.h"

std::filesystem::path pathOf(std::string_view text) { return widen(text); }

std::string textOf(const std::filesystem::path& path) { return narrow(path.native()); }
