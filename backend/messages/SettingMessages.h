#pragma once

#include "backend/messages/TypedMessage.h"
#include "backend/model/Settings.h"

namespace Backend
{
/// The command that changes a setting, and the message to the window when it was changed: the number of the setting
/// with its value.
template <const auto& row>
inline constexpr TypedMessage<Settings::ValueOf<row>> SETTING{row.number, row.name};
}  // namespace Backend
