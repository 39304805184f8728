#include "gui/screens/controls/ValueEdit.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QRegularExpressionValidator>
#include <algorithm>

#include "gui/framework/Properties.h"

namespace Gui::Controls
{
ValueEdit::ValueEdit(QWidget* parent) : EditBox(parent)
{
    setAlignment(Qt::AlignCenter);
    Property::set(*this, Property::TEXT, true);
    Property::setFont(*this, GdiManager::FontRole::font8);
    setValidator(new QRegularExpressionValidator(QRegularExpression(QStringLiteral("-?[0-9]{0,9}")), this));
    connect(this, &QLineEdit::editingFinished, this, [this] {
        if (isModified()) take();
    });
    // The wheel reports a number at once.
    connect(this, &QLineEdit::textEdited, this, [this] {
        if (!isModified()) take();
    });
}

void ValueEdit::setRange(int lowestValue, int highestValue)
{
    lowest = lowestValue;
    highest = highestValue;
    setProperty(Property::MIN, lowest);
    setProperty(Property::MAX, highest);
}

void ValueEdit::showValue(int newValue)
{
    value = newValue;
    if (!isModified()) restore();
}

/// Typing replaces a value that arrives while all of the text is selected.
void ValueEdit::restore()
{
    const bool isReplacedByTyping = hasFocus() && selectedText() == text();
    setNumber(value);
    if (isReplacedByTyping) selectAll();
}

void ValueEdit::take()
{
    bool isNumber = false;
    const int typed = text().toInt(&isNumber);
    if (isNumber) value = std::clamp(typed, lowest, highest);
    restore();
    if (isNumber && onChange) onChange(value);
}

void ValueEdit::contextMenuEvent(QContextMenuEvent* event) { event->ignore(); }

void ValueEdit::keyPressEvent(QKeyEvent* event)
{
    const int key = event->key();
    if (const int steps = stepsOf(key); steps != 0) {
        setNumber(getNumber() + steps);
        return take();
    }
    if (key == Qt::Key_Escape) restore();
    EditBox::keyPressEvent(event);
    if ((key == Qt::Key_Escape || key == Qt::Key_Return || key == Qt::Key_Enter) && onLeave) onLeave();
}
}  // namespace Gui::Controls
