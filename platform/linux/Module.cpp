#include "platform/Module.h"

#include <dlfcn.h>

void* getModuleHandle()
{
    Dl_info info{};
    return ::dladdr(reinterpret_cast<void*>(&getModuleHandle), &info) != 0 ? info.dli_fbase : nullptr;
}
