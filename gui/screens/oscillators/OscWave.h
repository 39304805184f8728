#pragma once

#include <QPolygonF>
#include <QWidget>
#include <array>
#include <optional>

#include "backend/model/Oscillator.h"

namespace Gui
{
class GdiManager;
}

namespace Gui::Oscillators
{
/// A cycle of the wave, on it a point at the value that was played last, and beside it the value. A random wave shows
/// its last eight values. Of one that is stopped the value is dimmed. Drawn again only when something in it has
/// changed. The GUI thread.
class OscWave final : public QWidget
{
public:
    using Oscillator = Backend::Oscillators::Oscillator;

    /// The manager must outlive it.
    OscWave(const GdiManager& manager, QWidget* strip);

    void showOscillator(const Oscillator& oscillator);
    /// Nothing for a value that is not known.
    void showValue(std::optional<int> newValue);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QRectF getPicture() const;
    QPointF pointAt(double position, double height) const;
    double heightOf(int shown) const;
    void movePoint(double height);
    void drawWave();

    const GdiManager& gdi;
    Oscillator shown;
    std::optional<int> value;
    QPolygonF wave;

    struct Point {
        double position = 0;  // in the cycle, 0 to 1
        double height = 0;    // of the wave, 0 to 1
        bool rises = true;
    };
    Point point;
    static constexpr std::size_t VALUES = 8;
    std::array<double, VALUES> randomHeights{0.3, 0.8, 0.5, 0.1, 0.9, 0.6, 0.2, 0.7};
    std::size_t lastRandom = 0;
};
}  // namespace Gui::Oscillators
