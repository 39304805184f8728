#pragma once

#include <functional>

#include "backend/values/RelativeFixedValue.h"
#include "gui/framework/EditBox.h"

namespace Gui::System
{
/// The tempo in beats per minute: typed, where "+5" and "-5" change it, or stepped by the wheel, the arrow keys (by 12
/// with Shift) or the page keys. Typed text is applied by Enter or on leaving the field, and discarded by Escape.
class TempoEdit final : public EditBox
{
public:
    explicit TempoEdit(QWidget* parent = nullptr);

    /// The user changes the tempo. The result of a relative change may be outside the limits.
    std::function<void(const RelativeFixedValue& change)> onChange;
    /// The user has finished typing.
    std::function<void()> onLeave;

    /// Does not call `onChange`. A text that is being typed stays.
    void showTempo(int beatsPerMinute);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void restore() { setNumber(tempo); }
    void change();
    void chooseFromMenu();
    void stepBy(int count, Qt::KeyboardModifiers modifiers);
    void request(const RelativeFixedValue& value) const;

    int tempo = 0;
    Wheel tempoWheel;
};
}  // namespace Gui::System
