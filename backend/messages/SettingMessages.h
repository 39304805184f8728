#pragma once

#include "backend/messages/TypedMessage.h"
#include "backend/model/Settings.h"

namespace Backend
{
/// The command that changes a setting, and the window's message when it was changed: the setting's number with the
/// value.
template <const auto& row>
inline constexpr TypedMessage<Settings::ValueOf<row>> SETTING{row.number, row.name};
}  // namespace Backend
