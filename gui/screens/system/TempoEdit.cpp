#include "gui/screens/system/TempoEdit.h"

#include <QKeyEvent>
#include <QRegularExpressionValidator>
#include <QWheelEvent>
#include <algorithm>
#include <cstdlib>

#include "backend/model/Program.h"
#include "gui/framework/Properties.h"

namespace Gui::System
{
using Backend::Program;

namespace
{
constexpr int WIDE_STEP = 12;
}  // namespace

TempoEdit::TempoEdit(QWidget* parent) : EditBox(parent)
{
    setProperty(Property::MIN, Program::LOWEST_TEMPO);
    setProperty(Property::MAX, Program::HIGHEST_TEMPO);
    setValidator(new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[+-]?[0-9]{0,3}")), this));
    connect(this, &QLineEdit::editingFinished, this, &TempoEdit::change);
    connect(this, &QLineEdit::textEdited, this, &TempoEdit::chooseFromMenu);
}

void TempoEdit::showTempo(int beatsPerMinute)
{
    tempo = beatsPerMinute;
    if (!isModified()) restore();
}

void TempoEdit::request(const RelativeFixedValue& value) const
{
    if (onChange) onChange(value);
}

void TempoEdit::change()
{
    if (!isModified()) return;
    const auto typed = RelativeFixedValue::fromXmlString(text().toStdString());
    const auto wanted = std::clamp<std::int64_t>(typed.appliedTo(tempo), Program::LOWEST_TEMPO, Program::HIGHEST_TEMPO);
    const bool isNew = wanted != tempo && typed != RelativeFixedValue{.relative = true, .value = 0};
    restore();
    if (isNew) request({.relative = false, .value = static_cast<std::int32_t>(wanted)});
}

/// A text that is being typed is not a tempo yet.
void TempoEdit::chooseFromMenu()
{
    if (!isModified()) request({.relative = false, .value = getNumber()});
}

/// Each step is posted by itself, relative to the tempo at that time, so that none is lost; at a limit the last ones
/// have no effect.
void TempoEdit::stepBy(int count, Qt::KeyboardModifiers modifiers)
{
    if (count != 0) restore();
    const int step = (count < 0 ? -1 : 1) * (modifiers.testFlag(Qt::ShiftModifier) ? WIDE_STEP : 1);
    for (int i = 0; i < std::abs(count); ++i) request({.relative = true, .value = step});
}

void TempoEdit::keyPressEvent(QKeyEvent* event)
{
    const auto key = event->key();
    if (const int steps = stepsOf(key); steps != 0) return stepBy(steps, event->modifiers());
    if (key == Qt::Key_Escape) restore();
    EditBox::keyPressEvent(event);
    if ((key == Qt::Key_Escape || key == Qt::Key_Return || key == Qt::Key_Enter) && onLeave) onLeave();
}

void TempoEdit::wheelEvent(QWheelEvent* event)
{
    stepBy(tempoWheel.takeNotches(*event), event->modifiers());
    event->accept();
}
}  // namespace Gui::System
