#pragma once

namespace Host
{
/// Whether the X server that DISPLAY names can be reached.
bool xServerAnswers();
}  // namespace Host
