#include "backend/core/SettingCommands.h"

#include <utility>

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

template <std::size_t... place>
bool executeAny(OrvIF& orv, Message& message, std::index_sequence<place...>)
{
    return (executeIf<*std::get<place>(Settings::ALL)>(orv, message) || ...);
}
}  // namespace

bool executeSettingCommand(OrvIF& orv, Message& message)
{
    return executeAny(orv, message, std::make_index_sequence<std::tuple_size_v<decltype(Settings::ALL)>>());
}
}  // namespace Backend
