#pragma once

#include <QWidget>
#include <array>
#include <functional>

#include "gui/framework/AccessibleControl.h"

namespace Gui
{
class GuiContext;
}

namespace Gui::Joystick
{
/// Where a stick stands, as a point in a field: one axis from left to right, the other from the bottom up. The point is
/// dragged by the mouse or moved by the arrow keys, with Shift further; a double click or Home moves it to the middle.
/// The GUI thread.
class GridCtl final : public QWidget, public AccessibleControl
{
public:
    enum Part { across, up };
    static constexpr int HIGHEST = 65535;  ///< of a position, the lowest is 0

    /// `owner` must outlive it. The names of its axes.
    GridCtl(GuiContext& owner, const QString& acrossName, const QString& upName, QWidget* parent);

    /// The user moved both, or one.
    std::function<void(int acrossPosition, int upPosition)> onMove;
    std::function<void(Part part, int position)> onStep;

    /// While it is dragged the point stays at the mouse.
    void showPosition(Part part, int position);
    int getPosition(Part part) const { return positions[part]; }

    QAccessible::Role getAccessibleRole() const override { return QAccessible::Slider; }
    /// "X 50 %, Y 50 %".
    QString getAccessibleValue() const override;
    bool isPressable() const override { return false; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    QRect getField() const;
    void set(int acrossPosition, int upPosition);
    void moveTo(int acrossPosition, int upPosition);
    void moveTo(const QPointF& point);
    void step(Part part, int by);

    GuiContext& context;
    const std::array<QString, 2> names;
    std::array<int, 2> positions;
    bool isDragged = false;
};
}  // namespace Gui::Joystick
