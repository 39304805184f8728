#pragma once

#include <string>
#include <vector>

#include "platform/Export.h"

namespace Backend
{
/// A bank: the path of its file and the names of its programs. The programs themselves stay in the file.
struct ORV_API Bank {
    std::string name;                       ///< the path of the file; empty if no bank is loaded
    std::vector<std::string> programNames;  ///< in file order

    /// Reads the names; a file that cannot be read has none.
    static Bank fromFile(const std::string& path);

    bool operator==(const Bank&) const = default;
};
}  // namespace Backend
