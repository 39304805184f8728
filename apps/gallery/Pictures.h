#pragma once

#include <functional>
#include <string>

#include <QImage>

#include "apps/gallery/Gallery.h"

/// The pictures of the gallery that are kept with the sources, "classic-100.png" and so on. Text is drawn as boxes, so
/// that they are the same on every machine.
namespace Pictures
{
using Take = std::function<QImage(const Appearance& appearance)>;

/// Before there is an application: draws off the screen, with the boxes as the only font.
void useBoxes();

bool write(const std::string& folder, const Take& take);

/// False if one differs. What differs is shown in white in a file, whose path is printed.
bool compare(const std::string& folder, const Take& take);
}  // namespace Pictures
