#include "host/window/Icon.h"

#include <QPainter>
#include <QPixmap>
#include <array>

#include "host/window/Colours.h"

namespace Host
{
namespace
{
constexpr std::array SIZES{16, 22, 24, 32, 48, 64, 128, 256};

// In a square of 16
constexpr double SIDE = 16;
constexpr double ROUND = 3;
constexpr std::array WHITE_KEYS{QRectF(2, 3, 3.5, 10), QRectF(6.25, 3, 3.5, 10), QRectF(10.5, 3, 3.5, 10)};
constexpr std::array BLACK_KEYS{QRectF(4.5, 3, 2.75, 6), QRectF(8.75, 3, 2.75, 6)};
constexpr std::size_t HELD = 1;

QPixmap drawIcon(int size)
{
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(size / SIDE, size / SIDE);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Colours::GROUND);
    painter.drawRoundedRect(QRectF(0, 0, SIDE, SIDE), ROUND, ROUND);
    for (std::size_t key = 0; key < WHITE_KEYS.size(); ++key)
        painter.fillRect(WHITE_KEYS[key], key == HELD ? Colours::BRIGHT : Colours::LINE);
    for (const QRectF& key : BLACK_KEYS) painter.fillRect(key, Colours::GROUND);
    return pixmap;
}
}  // namespace

QIcon icon()
{
    QIcon icon;
    for (const int size : SIZES) icon.addPixmap(drawIcon(size));
    return icon;
}
}  // namespace Host
