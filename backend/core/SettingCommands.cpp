#include "backend/core/SettingCommands.h"

namespace Backend
{
namespace
{
template <const auto& row>
bool executeIf(OrvIF& orv, Message& message)
{
    if constexpr (row.number == 0) return false;
    if (row.number != message.number) return false;
    SETTING<row>.deliver(message, [&](const auto& value) { changeSetting<row>(orv, value); });
    return true;
}
}  // namespace

bool executeSettingCommand(OrvIF& orv, Message& message)
{
    bool done = false;
    Settings::All::forEach([&]<const auto & row>() { done = done || executeIf<row>(orv, message); });
    return done;
}
}  // namespace Backend
