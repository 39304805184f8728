#pragma once

#include <QIcon>

namespace Host
{
/// Orvane's sign: three piano keys on black, one of them held. Sharp in every size.
QIcon icon();
}  // namespace Host
