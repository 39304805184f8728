#pragma once

#include <QIcon>

namespace Host
{
/// Orvane's icon: three piano keys on black, one of them pressed. Drawn for each size.
QIcon icon();
}  // namespace Host
