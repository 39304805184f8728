#include "platform/KeyRepeat.h"

#include <windows.h>

// The ranges are those of the system's documentation: delays of 250 to 1000 ms in four steps, 2.5 to 30 repeats a
// second in 32.
KeyRepeat getKeyRepeat()
{
    KeyRepeat repeat;
    int delay = 0;
    if (SystemParametersInfoW(SPI_GETKEYBOARDDELAY, 0, &delay, 0) != 0)
        repeat.delay = static_cast<std::uint32_t>(delay + 1) * 250;
    DWORD speed = 0;
    if (SystemParametersInfoW(SPI_GETKEYBOARDSPEED, 0, &speed, 0) != 0)
        repeat.interval = static_cast<std::uint32_t>(1000 / (2.5 + speed * 27.5 / 31));
    return repeat;
}
