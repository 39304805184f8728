#pragma once

#include <QLineEdit>

#include "gui/framework/Wheel.h"

namespace Gui
{
class PopupMenu;

/// A line to type in. Its properties (`Properties.h`) say what it holds, a number between limits, a note or any text,
/// and what the wheel and the menu do with it: the values to choose from, or the commands of a text.
class EditBox : public QLineEdit
{
public:
    explicit EditBox(QWidget* parent = nullptr);

    /// The number in the line; of a note its number, of a blank 0 if SHOW_ZERO_AS_BLANK is set.
    int getNumber() const;
    /// Sends no `textEdited`.
    void setNumber(int number);

    /// The text for a number, according to the properties.
    QString textOf(int number) const;

    /// Turns the wheel by so many notches; a result outside the limits changes nothing. With Shift a notch counts 12.
    void step(int notches, bool shift);

protected:
    /// Keys typed here are never played. A dialog still gets Enter and Escape.
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

    /// By how much Up, Down, Page Up and Page Down change a number, 0 for other keys.
    static int stepsOf(int key);

private:
    struct Range {
        int lowest;
        int highest;
    };
    Range getRange() const;
    void choose(int number);
    PopupMenu& makeTextMenu();

    Wheel wheel;
};
}  // namespace Gui
