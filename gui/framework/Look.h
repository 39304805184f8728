#pragma once

#include <QString>
#include <Qt>

#include "gui/framework/GdiManager.h"

class QPainter;
class QWidget;

/// Shapes that the skin and the controls that paint themselves share.
namespace Gui::Look
{
enum class Direction { up, down, left, right };

/// A line around, as many device pixels thick on every side as fit a pixel of the scale, in the role of a control's
/// border.
void drawFrame(QPainter& painter, const GdiManager& gdi, const QRect& rectangle, bool enabled);

/// Marks the control that has the keyboard focus: a ring of two pixels.
void drawFocus(QPainter& painter, const GdiManager& gdi, const QRect& rectangle);

/// The metal of a window's border, lit from above.
void drawMetal(QPainter& painter, const QRect& rectangle);

/// What is drawn on this colour: black or white.
QColor inkOn(const QColor& fill);

/// As large as fits into the middle of `place`.
void drawTriangle(QPainter& painter, const QRectF& place, Direction direction, const QColor& colour);

struct ButtonState {
    QString label;
    bool enabled = true;
    bool pressed = false;
    bool isSwitch = false;  ///< an outline while it is off
};

/// A push button. Its marks (COLOR, SELECTED, GRAYTEXT) are properties of `control`, which may be null; a small one has
/// a small font, any other that of the painter.
void drawButton(QPainter& painter, const GdiManager& gdi, const QRect& rectangle, const ButtonState& state,
                const QWidget* control);

/// A disc with its corner there, from the cache of knobs.
void drawDisc(QPainter& painter, GdiManager& gdi, const QPoint& corner, int diameter, GdiManager::Role colour);

struct FaderState {
    Qt::Orientation orientation{};
    qreal fraction{};  ///< 0 at the bottom or the left, 1 at the other end
    int disc{};        ///< its diameter in logical pixels
    bool enabled = true;
};

/// A thin line and a disc on it.
void drawFader(QPainter& painter, GdiManager& gdi, const QRect& rectangle, const FaderState& state);
}  // namespace Gui::Look
