#pragma once

#include "gui/framework/DragSlider.h"

namespace Gui
{
/// A disc on a thin line. A vertical one has its lowest value at the bottom, a horizontal one at the left.
class Fader final : public DragSlider
{
public:
    explicit Fader(GuiContext& guiContext, Qt::Orientation direction = Qt::Vertical, QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};
}  // namespace Gui
