#pragma once

#include <filesystem>
#include <string>

#include "backend/core/OrvMessageManager.h"

namespace Host
{
/// Throws InputError with one line naming the file if it is neither a program (.prg) nor a bank (.bnk), or holds no
/// program.
void checkSetupFile(const std::filesystem::path& path);

/// Posts the loading of a program, or of a bank, by the file's ending. Any thread.
void postLoad(Backend::OrvMessageManager& backend, const std::string& path);
}  // namespace Host
