#include "host/common/ProgramFile.h"

namespace Host
{
std::filesystem::path programFile()
{
    std::error_code none;
    return std::filesystem::read_symlink("/proc/self/exe", none);
}
}  // namespace Host
