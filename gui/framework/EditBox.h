#pragma once

#include <QLineEdit>

#include "gui/framework/Wheel.h"

namespace Gui
{
/// A line to type in. What it holds, and what wheel and menu do with it, its properties say: a number between limits, a
/// note, or any text.
class EditBox : public QLineEdit
{
public:
    explicit EditBox(QWidget* parent = nullptr);

    /// The number that stands there: a note's, 0 for a blank that means 0.
    int getNumber() const;
    /// Without telling anyone.
    void setNumber(int number);

    /// The text of a number, as the properties want it.
    QString textOf(int number) const;

    /// A wheel turned by so many notches; a result outside the limits changes nothing. Shift makes a notch 12.
    void step(int notches, bool shift);

protected:
    /// What is typed here never plays. A dialog still gets its Enter and Escape.
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    struct Range {
        int lowest;
        int highest;
    };
    Range getRange() const;
    void choose(int number);

    Wheel wheel;
};
}  // namespace Gui
