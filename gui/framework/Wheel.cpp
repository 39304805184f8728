#include "gui/framework/Wheel.h"

#include <QWheelEvent>

namespace Gui
{
int Wheel::takeNotches(const QWheelEvent& event)
{
    constexpr int NOTCH = 120;
    // With Shift some desktops report a horizontal wheel.
    rest += event.angleDelta().y() != 0 ? event.angleDelta().y() : event.angleDelta().x();
    const int notches = rest / NOTCH;
    rest -= notches * NOTCH;
    return notches;
}
}  // namespace Gui
