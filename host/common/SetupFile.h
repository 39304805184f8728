#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "api/OrvMessageManager.h"

namespace Host
{
/// What is loaded at the start.
struct Setup {
    std::vector<std::string> loads{};  ///< programs (.prg) and banks (.bnk), in order; none for the user's default bank
    int number = 0;                    ///< the program taken from a bank, from 0
    std::string program{};             ///< a program as text, loaded last; empty for none
    /// The end is stored as the place where the next start begins, and a start of which nothing else is known begins at
    /// the one that is stored.
    bool continuesLast = false;

    bool isPlain() const { return loads.empty() && number == 0 && program.empty(); }

    bool operator==(const Setup&) const = default;
};

/// Throws InputError with one line naming the file if it is neither a program (.prg) nor a bank (.bnk), or holds no
/// program.
void checkSetupFile(const std::filesystem::path& path);

/// Posts the loading of a program, or of a bank, by the file's ending. Any thread.
void postLoad(Backend::OrvMessageManager& backend, const std::string& path);
}  // namespace Host
