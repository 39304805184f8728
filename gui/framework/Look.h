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

/// One pixel around, in the role of a control's border.
void drawFrame(QPainter& painter, const GdiManager& gdi, const QRect& rectangle, bool enabled);

/// Marks the control that has the keyboard focus.
void drawFocus(QPainter& painter, const GdiManager& gdi, const QRect& rectangle);

/// As large as fits into the middle of `place`.
void drawTriangle(QPainter& painter, const QRectF& place, Direction direction, const QColor& colour);

struct ButtonState {
    QString label;
    bool enabled = true;
    bool pressed = false;
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
