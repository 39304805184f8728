#pragma once

#include <functional>

#include "backend/values/RelativeFixedValue.h"
#include "gui/framework/EditBox.h"

namespace Gui::System
{
/// The tempo in beats per minute: typed, where "+5" and "-5" change it, or stepped by the wheel and the arrow keys (12
/// with Shift) or by the page keys. What is typed counts with Enter or on going elsewhere, and Escape takes it back.
class TempoEdit final : public EditBox
{
public:
    explicit TempoEdit(QWidget* parent = nullptr);

    /// The user's wish. One that is relative may lie outside the limits.
    std::function<void(const RelativeFixedValue& wish)> onChange;
    /// The user has done with typing.
    std::function<void()> onLeave;

    /// Without telling anyone. What is being typed stays.
    void showTempo(int beatsPerMinute);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void restore() { setNumber(tempo); }
    void change();
    void chooseFromMenu();
    void stepBy(int count, Qt::KeyboardModifiers modifiers);
    void wish(const RelativeFixedValue& value) const;

    int tempo = 0;
    Wheel tempoWheel;
};
}  // namespace Gui::System
