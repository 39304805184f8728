#include "platform/ThreadStack.h"

#include <pthread.h>

#include <algorithm>

void setThreadStack(std::size_t bytes)
{
    constexpr std::size_t LEAST = std::size_t{64} * 1024;
    pthread_attr_t attributes{};
    if (pthread_attr_init(&attributes) != 0) return;
    pthread_attr_setstacksize(&attributes, std::max(bytes, LEAST));
    pthread_setattr_default_np(&attributes);
    pthread_attr_destroy(&attributes);
}
