#pragma once

#include <functional>

#include "gui/framework/EditBox.h"

namespace Gui::Controls
{
/// The value of a control to type in. The wheel and the arrow and page keys change it at once; what is typed is taken
/// by Enter or when the edit is left, and limited to the range. A value that arrives meanwhile does not replace what is
/// typed. The GUI thread.
class ValueEdit final : public EditBox
{
public:
    explicit ValueEdit(QWidget* parent = nullptr);

    /// The user has set a value, also the present one again.
    std::function<void(int value)> onChange;
    /// After Enter and Escape, which discards what was typed.
    std::function<void()> onLeave;

    void setRange(int lowestValue, int highestValue);
    /// Does not call `onChange`.
    void showValue(int newValue);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    /// Left to the grid, as of other controls.
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void restore();
    void take();

    int value = 0;
    int lowest = 0;
    int highest = 127;
};
}  // namespace Gui::Controls
