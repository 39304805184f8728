#include "host/jack/SharedMemory.h"

#include <sys/mman.h>

#include <cstdint>
#include <fstream>
#include <sstream>
#include <string>

namespace Host
{
namespace
{
// How the names of the server's shared memory begin.
constexpr const char* PLACE = "/dev/shm/jack-";

struct Mapping {
    std::uintptr_t from = 0;
    std::uintptr_t to = 0;
    std::string file;
};

/// From a line of `/proc/self/maps`: "from-to permissions offset device inode file", addresses without 0x.
Mapping parseMapping(const std::string& line)
{
    Mapping mapping;
    char dash = 0;
    std::string ignored;
    std::istringstream in(line);
    in >> std::hex >> mapping.from >> dash >> mapping.to;
    in >> ignored >> ignored >> ignored >> ignored >> mapping.file;
    return mapping;
}

/// The pages stay where they are; this process maps a page again when it is first used.
void unlock(const Mapping& mapping)
{
    auto* const start = reinterpret_cast<void*>(mapping.from);
    const std::size_t size = mapping.to - mapping.from;
    if (munlock(start, size) == 0) madvise(start, size, MADV_DONTNEED);
}
}  // namespace

void unlockJackMemory()
{
    std::ifstream maps("/proc/self/maps");
    for (std::string line; std::getline(maps, line);)
        if (const Mapping mapping = parseMapping(line); mapping.file.starts_with(PLACE)) unlock(mapping);
}
}  // namespace Host
