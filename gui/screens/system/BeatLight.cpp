#include "gui/screens/system/BeatLight.h"

#include <QPainter>
#include <chrono>

#include "gui/framework/GdiManager.h"

namespace Gui::System
{
using Role = GdiManager::Role;

namespace
{
constexpr auto GLOW = std::chrono::milliseconds(90);
constexpr int PULSES_PER_BEAT = 480;
constexpr int MILLISECONDS_PER_MINUTE = 60'000;
}  // namespace

BeatLight::BeatLight(const GdiManager& manager, QWidget* parent) : QWidget(parent), gdi(manager)
{
    beat.setSingleShot(true);
    beat.setTimerType(Qt::PreciseTimer);
    dark.setSingleShot(true);
    connect(&beat, &QTimer::timeout, this, [this] {
        setLit(true);
        dark.start(GLOW);
    });
    connect(&dark, &QTimer::timeout, this, [this] { setLit(false); });
}

void BeatLight::showClock(std::int32_t pulse, int beatsPerMinute)
{
    if (!isVisible() || beatsPerMinute <= 0) return;
    const int rest = PULSES_PER_BEAT - pulse % PULSES_PER_BEAT;
    beat.start(rest * MILLISECONDS_PER_MINUTE / (PULSES_PER_BEAT * beatsPerMinute));
}

void BeatLight::setLit(bool on)
{
    lit = on;
    update();
}

void BeatLight::hideEvent(QHideEvent*)
{
    beat.stop();
    lit = false;
}

void BeatLight::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(gdi.getColour(Role::controlBorder));
    painter.setBrush(lit ? QBrush(gdi.getColour(Role::selectedButton)) : QBrush(Qt::NoBrush));
    painter.drawEllipse(QRectF(rect()).adjusted(1, 1, -1, -1));
}
}  // namespace Gui::System
