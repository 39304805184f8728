#pragma once

#include <QPixmap>
#include <cassert>
#include <utility>

namespace WindowsLib
{
/// A picture. It must not be null.
class Bitmap
{
public:
    explicit Bitmap(QPixmap pixmap) : handle(std::move(pixmap)) { assert(!handle.isNull() && "m_handle != NULL"); }

    const QPixmap& getHandle() const { return handle; }
    /// In logical pixels.
    int getWidth() const { return static_cast<int>(handle.deviceIndependentSize().width()); }
    int getHeight() const { return static_cast<int>(handle.deviceIndependentSize().height()); }

private:
    QPixmap handle;
};
}  // namespace WindowsLib
