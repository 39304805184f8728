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
        beat.start(beatTime);
    });
    connect(&dark, &QTimer::timeout, this, [this] { setLit(false); });
}

void BeatLight::showClock(std::int32_t pulse, int beatsPerMinute)
{
    beat.stop();
    if (!isVisible() || pulse < 0 || beatsPerMinute <= 0) return;
    beatTime = MILLISECONDS_PER_MINUTE / beatsPerMinute;
    beat.start((PULSES_PER_BEAT - pulse % PULSES_PER_BEAT) * beatTime / PULSES_PER_BEAT);
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
