#pragma once

#include <string>
#include <vector>

#include "platform/Export.h"

namespace Backend
{
/// A bank file by name, with the names of its programs. Their content stays in the file.
struct ORV_API Bank {
    std::string name;                       ///< the file's path; empty if no bank is loaded
    std::vector<std::string> programNames;  ///< in file order

    /// Reads the names; a file that cannot be read has none.
    static Bank fromFile(const std::string& path);

    bool operator==(const Bank&) const = default;
};
}  // namespace Backend
