#pragma once

#include <sys/resource.h>

#include <csignal>

/// While it stands no file of this process grows beyond a few bytes, whichever thread writes it: the disk is full.
class FullDisk
{
public:
    FullDisk()
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &before);
        rlimit now = before;
        now.rlim_cur = 16;
        setrlimit(RLIMIT_FSIZE, &now);
    }
    ~FullDisk() { setrlimit(RLIMIT_FSIZE, &before); }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit before{};
};
