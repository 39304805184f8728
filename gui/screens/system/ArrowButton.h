#pragma once

#include <QPushButton>

#include "gui/framework/Look.h"

namespace Gui::System
{
/// A button with a triangle.
class ArrowButton final : public QPushButton
{
public:
    ArrowButton(const GdiManager& manager, Look::Direction pointsTo, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const GdiManager& gdi;
    const Look::Direction direction;
};
}  // namespace Gui::System
