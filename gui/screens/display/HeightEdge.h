#pragma once

#include <QAbstractSlider>

namespace Gui
{
class GdiManager;
}

namespace Gui::Display
{
/// The lower edge of a panel, which is dragged or moved by the arrow keys to change the height. Its value is the height
/// in logical pixels.
class HeightEdge final : public QAbstractSlider
{
public:
    static constexpr int THICKNESS = 7;

    HeightEdge(GdiManager& manager, int lowest, int highest, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    GdiManager& gdi;
    double grabbedAt = 0;  // the position on the desktop that means height 0
};
}  // namespace Gui::Display
