#include "host/terminal/HeldKey.h"

namespace Host
{
void HeldKey::arrive(const Key& arrived, Time now)
{
    pass(now);
    const bool isRepeat = key == arrived;
    if (!isRepeat) release();
    key = arrived;
    end = now + (isRepeat ? BETWEEN_REPEATS : UNTIL_FIRST_REPEAT);
    send({isRepeat ? PressAction::repeat : PressAction::down, arrived});
}

void HeldKey::pass(Time now)
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
