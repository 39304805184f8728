#pragma once

#include "gui/framework/DragSlider.h"

namespace Gui
{
/// A disc that turns, from seven o'clock for the lowest value over the top to five o'clock.
class Knob final : public DragSlider
{
public:
    explicit Knob(GuiContext& guiContext, QWidget* parent = nullptr);

    QSize sizeHint() const override { return {31, 31}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void drawPointer(QPainter& painter, int diameter) const;
};
}  // namespace Gui
