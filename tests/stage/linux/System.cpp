#include "tests/stage/System.h"

#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#include <cstdlib>

#include "tests/stage/FullDisk.h"

void System::setVariable(const std::string& name, const std::string& value)
{
    value.empty() ? ::unsetenv(name.c_str()) : ::setenv(name.c_str(), value.c_str(), 1);
}

void System::makeSpecialFile(const std::filesystem::path& path) { ::mkfifo(path.c_str(), 0600); }

void System::offerFonts() {}  // those of fontconfig

std::vector<std::string> System::devices() { return {"/dev/zero", "/dev/null"}; }

namespace
{
rlimit roomBefore{};
}

FullDisk::FullDisk(std::uint64_t bytes)
{
    std::signal(SIGXFSZ, SIG_IGN);
    getrlimit(RLIMIT_FSIZE, &roomBefore);
    rlimit now = roomBefore;
    now.rlim_cur = bytes;
    setrlimit(RLIMIT_FSIZE, &now);
}

FullDisk::~FullDisk() { setrlimit(RLIMIT_FSIZE, &roomBefore); }
