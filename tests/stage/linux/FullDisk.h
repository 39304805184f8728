#pragma once

#include <sys/resource.h>

#include <csignal>

/// While it stands no file of this process grows beyond some bytes, whichever thread writes it: the disk is full.
class FullDisk
{
public:
    explicit FullDisk(rlim_t bytes = 16)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &before);
        rlimit now = before;
        now.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &now);
    }
    ~FullDisk() { setrlimit(RLIMIT_FSIZE, &before); }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit before{};
};
