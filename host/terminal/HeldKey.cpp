#include "host/terminal/HeldKey.h"

namespace Host
{
void HeldKey::receive(const Key& received, Time now)
{
    advanceTo(now);
    const bool isRepeat = key == received;
    if (!isRepeat) release();
    key = received;
    end = now + (isRepeat ? BETWEEN_REPEATS : UNTIL_FIRST_REPEAT);
    send({isRepeat ? PressAction::repeat : PressAction::down, received});
}

void HeldKey::advanceTo(Time now)
{
    if (key && now >= end) release();
}

void HeldKey::release()
{
    if (!key) return;
    send({PressAction::up, *key});
    key.reset();
}
}  // namespace Host
