#pragma once

#include <QColor>

/// The colours of the window's border and icon. They match the green on black of what the window shows.
namespace Host::Colours
{
inline const QColor LIGHT_METAL(192, 192, 192);
inline const QColor DARK_METAL(70, 70, 70);
inline const QColor GROUND(0, 0, 0);
inline const QColor BRIGHT(0, 255, 0);
inline const QColor LINE(0, 160, 0);
inline const QColor DIM(0, 100, 0);
}  // namespace Host::Colours
