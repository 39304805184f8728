#pragma once

class QWheelEvent;

namespace Gui
{
/// Counts the notches of a mouse wheel, also of a fine one that sends parts of a notch.
class Wheel
{
public:
    /// The whole notches since the last, above 0 away from the hand.
    int takeNotches(const QWheelEvent& event);

private:
    int rest = 0;
};
}  // namespace Gui
