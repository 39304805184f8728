#include "gui/framework/ActivityLights.h"

#include <QPainter>
#include <QRegularExpression>
#include <chrono>
#include <utility>

#include "gui/framework/GdiManager.h"
#include "gui/framework/Properties.h"

namespace Gui
{
using Role = GdiManager::Role;

namespace
{
constexpr auto GLOW = std::chrono::milliseconds(120);
constexpr int LIGHT_SIZE = 8;
constexpr int PITCH = 12;
constexpr int GAP = 6;
constexpr int MOST = 64;
}  // namespace

ActivityLights::ActivityLights(const GdiManager& manager, const QString& labelText, QWidget* parent)
    : Indicator(manager, parent), label(labelText)
{
    connect(&look, &QTimer::timeout, this, [this] {
        if (lit != seen) update();
        lit = std::exchange(seen, 0);
        if (lit == 0) look.stop();
    });
}

void ActivityLights::setPorts(const QStringList& portNames)
{
    names = portNames.mid(0, MOST);
    setToolTip(names.filter(QRegularExpression(QStringLiteral("."))).join('\n'));
    update();
}

void ActivityLights::flash(std::uint64_t ports)
{
    if (ports == 0) return;
    seen |= ports;
    if ((lit | seen) != lit) {
        lit |= seen;
        update();
    }
    if (!look.isActive()) look.start(GLOW);
}

QString ActivityLights::getAccessibleValue() const
{
    QStringList active;
    for (int port = 0; port < names.size(); ++port)
        if (isLit(port) && !names[port].isEmpty()) active << names[port];
    return active.join(QStringLiteral(", "));
}

/// As many as fit.
void ActivityLights::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(gdi.getFont(GdiManager::FontRole::font9));
    painter.setPen(gdi.getColour(Role::label));
    painter.drawText(rect(), Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine, label);
    int left = painter.fontMetrics().horizontalAdvance(label) + gdi.px(GAP);
    const int disc = gdi.px(LIGHT_SIZE);
    for (int port = 0; port < names.size() && left + disc <= width(); ++port) {
        if (names[port].isEmpty()) continue;
        painter.setPen(gdi.getColour(Role::controlBorder));
        painter.setBrush(isLit(port) ? QBrush(gdi.getColour(Role::selectedButton)) : QBrush(Qt::NoBrush));
        painter.drawEllipse(QRectF(left + 0.5, (height() - disc) / 2 + 0.5, disc - 1, disc - 1));
        left += gdi.px(PITCH);
    }
}
}  // namespace Gui
