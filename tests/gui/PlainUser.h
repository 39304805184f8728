#pragma once

#include <linux/capability.h>
#include <sys/syscall.h>
#include <unistd.h>

/// While it stands, this thread, and those that it starts, may write only where the modes of files and folders let it,
/// also if the tests are run by root.
class PlainUser
{
public:
    PlainUser()
    {
        syscall(SYS_capget, &header, capabilities);
        __user_cap_data_struct now[] = {capabilities[0], capabilities[1]};
        now[0].effective = now[1].effective = 0;
        syscall(SYS_capset, &header, now);
    }
    ~PlainUser() { syscall(SYS_capset, &header, capabilities); }
    PlainUser(const PlainUser&) = delete;
    PlainUser& operator=(const PlainUser&) = delete;

private:
    __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
    __user_cap_data_struct capabilities[2]{};
};
