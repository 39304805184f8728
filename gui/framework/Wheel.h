#pragma once

class QWheelEvent;

namespace Gui
{
/// Counts the notches of a mouse wheel, also of a fine one that sends parts of a notch.
class Wheel
{
public:
    /// The whole notches since the last call, above 0 away from the user.
    int takeNotches(const QWheelEvent& event);

private:
    int rest = 0;
};
}  // namespace Gui
