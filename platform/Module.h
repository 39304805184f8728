#pragma once

#include "platform/Export.h"

/// Where the library that this code is part of lies in memory: what the system calls it by. Not to be closed.
ORV_API void* getModuleHandle();
