#include "gui/screens/oscillators/OscWave.h"

#include <QPainter>
#include <algorithm>
#include <cmath>
#include <numbers>

#include "gui/framework/GdiManager.h"
#include "gui/framework/Look.h"

namespace Gui::Oscillators
{
using Kind = Backend::Oscillators::OscillatorType::Kind;
using Role = GdiManager::Role;

namespace
{
constexpr int VALUE_WIDTH = 46;  // logical pixels, as these
constexpr int GAP = 4;
constexpr int INSET = 4;
constexpr int POINT = 6;
constexpr int CURVE = 48;  // points of a curved line
constexpr double TURN = 2 * std::numbers::pi;

/// Of a wave that begins at its lowest value, from 0 to 1.
double heightAt(Kind kind, double position)
{
    switch (kind) {
        case Kind::sin:
            return (1 - std::cos(TURN * position)) / 2;
        case Kind::tri:
            return 1 - std::abs(2 * position - 1);
        case Kind::pulse:
            return position < 0.5 ? 0 : 1;
        default:
            return position;
    }
}

/// Where the wave has that height.
double positionAt(Kind kind, double height, bool rises)
{
    const double half = kind == Kind::sin ? std::acos(1 - 2 * height) / TURN : height / 2;
    switch (kind) {
        case Kind::sin:
        case Kind::tri:
            return rises ? half : 1 - half;
        case Kind::pulse:
            return height < 0.5 ? 0.25 : 0.75;
        default:
            return height;
    }
}
}  // namespace

OscWave::OscWave(const GdiManager& manager, QWidget* strip) : QWidget(strip), gdi(manager)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void OscWave::showOscillator(const Oscillator& oscillator)
{
    shown = oscillator;
    if (value) movePoint(heightOf(*value));
    drawWave();
    update();
}

void OscWave::showValue(std::optional<int> newValue)
{
    if (value == newValue) return;
    if (newValue) {
        const double height = heightOf(*newValue);
        if (shown.type.kind == Kind::random) {
            lastRandom = (lastRandom + 1) % VALUES;
            randomHeights[lastRandom] = height;
            drawWave();
        }
        movePoint(height);
    }
    value = newValue;
    update();
}

/// Of the wave, which is inverted if its minimum is above its maximum.
double OscWave::heightOf(int ofValue) const
{
    const double range = static_cast<double>(shown.max) - shown.min;
    return range == 0 ? 0 : std::clamp((static_cast<double>(ofValue) - shown.min) / range, 0.0, 1.0);
}

void OscWave::movePoint(double height)
{
    if (height != point.height) point.rises = height > point.height;
    point.height = height;
    point.position = shown.type.kind == Kind::random ? (static_cast<double>(lastRandom) + 0.5) / VALUES
                                                     : positionAt(shown.type.kind, height, point.rises);
}

// --- the picture

QRectF OscWave::getPicture() const { return QRectF(rect().adjusted(0, 0, -gdi.px(VALUE_WIDTH + GAP), 0)); }

QPointF OscWave::pointAt(double position, double height) const
{
    const double margin = gdi.px(INSET);
    const QRectF inside = getPicture().adjusted(margin, margin, -margin, -margin);
    const double up = shown.max < shown.min ? 1 - height : height;
    return {inside.left() + position * inside.width(), inside.bottom() - up * inside.height()};
}

void OscWave::drawWave()
{
    wave.clear();
    const auto addSteps = [this](std::size_t count, const auto& heightOfStep) {
        for (std::size_t step = 0; step < count; ++step)
            for (const std::size_t end : {step, step + 1})
                wave << pointAt(static_cast<double>(end) / static_cast<double>(count), heightOfStep(step));
    };
    switch (shown.type.kind) {
        case Kind::random:
            return addSteps(VALUES, [this](std::size_t step) { return randomHeights[step]; });
        case Kind::pulse:
            return addSteps(2, [](std::size_t step) { return step == 0 ? 0.0 : 1.0; });
        default:
            for (int i = 0; i <= CURVE; ++i)
                wave << pointAt(i / double{CURVE}, heightAt(shown.type.kind, i / double{CURVE}));
            if (shown.type.kind == Kind::saw) wave << pointAt(1, 0);
    }
}

void OscWave::resizeEvent(QResizeEvent*) { drawWave(); }

void OscWave::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), gdi.getColour(Role::background));
    Look::drawFrame(painter, gdi, getPicture().toRect(), shown.playing);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(gdi.getColour(shown.playing ? Role::label : Role::labelDisabled), gdi.px(1)));
    painter.drawPolyline(wave);
    if (!value) return;
    const QColor colour = gdi.getColour(shown.playing ? Role::text : Role::labelDisabled);
    const double radius = gdi.px(POINT) / 2.0;
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawEllipse(pointAt(point.position, point.height), radius, radius);
    painter.setPen(colour);
    painter.drawText(rect().adjusted(width() - gdi.px(VALUE_WIDTH), 0, 0, 0),
                     Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine, QString::number(*value));
}
}  // namespace Gui::Oscillators
