#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "host/ports/Ports.h"

namespace Host
{
/// Stores the numbers of the ports from one run to the next: the names of the ports, one per line in the order of their
/// numbers, in "Midi Inputs.txt" and "Midi Outputs.txt". Control thread.
class PortMemory
{
public:
    using Report = std::function<void(const std::string& line)>;

    /// `folder` need not exist yet. `report` gets a line for each file that cannot be read or written; such a file is
    /// not changed.
    PortMemory(const std::string& folder, Report report);

    /// Adds the stored ports, as not found, to empty lists. The first output is `firstOutput`, whatever the file says,
    /// unless that is empty. Lines that are empty, not UTF-8 or duplicates are ignored.
    void restore(Ports& ports, std::string_view firstOutput);

    /// Writes the names if there are more ports than names in the files.
    void save(const Ports& ports);

private:
    struct List {
        std::string path;
        std::size_t stored = 0;  // names in the file
        bool usable = true;
    };

    std::vector<std::string> read(List& list) const;
    void write(List& list, const std::vector<std::string>& names) const;

    const Report report;
    List inputs;
    List outputs;
};
}  // namespace Host
