#pragma once

#include <QColor>

#include "gui/framework/GdiManager.h"

/// The colours of the window's own border, out of those of the product.
namespace Host::Colours
{
inline const QColor LIGHT_METAL = WindowsLib::toQColor(Gui::GdiManager::LIGHT_GREY);
inline const QColor DARK_METAL = WindowsLib::toQColor(Gui::GdiManager::DARK_DARK_GREY);
inline const QColor GROUND = WindowsLib::toQColor(Gui::GdiManager::BLACK);
inline const QColor BRIGHT = WindowsLib::toQColor(Gui::GdiManager::LIGHT_LIGHT_GREEN);
inline const QColor LINE = WindowsLib::toQColor(Gui::GdiManager::DARK_GREEN);
inline const QColor DIM = WindowsLib::toQColor(Gui::GdiManager::DARK_DARK_GREEN);
}  // namespace Host::Colours
