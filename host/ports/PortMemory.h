#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "host/ports/Ports.h"

namespace Host
{
/// Keeps the numbers of the ports from one run to the next: their names, one a line in the order of their numbers, in
/// "Midi Inputs.txt" and "Midi Outputs.txt" of a folder. The control thread.
class PortMemory
{
public:
    using Tell = std::function<void(const std::string& line)>;

    /// `folder` may be missing as yet. `tell` gets a line for each file that cannot be used; such a file is left alone.
    PortMemory(const std::string& folder, Tell tell);

    /// Enters the ports that were known, as not found, into lists that are empty. The first output is `firstOutput`,
    /// whatever the file says. A line that is empty, not UTF-8 or there a second time counts for nothing.
    void recall(Ports& ports, std::string_view firstOutput);

    /// Writes the names down if there are more than the files have.
    void keep(const Ports& ports);

private:
    struct List {
        std::string path;
        std::size_t known = 0;
        bool usable = true;
    };

    std::vector<std::string> read(List& list) const;
    void write(List& list, const std::vector<std::string>& names) const;

    const Tell tell;
    List inputs;
    List outputs;
};
}  // namespace Host
