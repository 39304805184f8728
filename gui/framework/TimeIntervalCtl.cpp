#include "gui/framework/TimeIntervalCtl.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <algorithm>

#include "api/GuiContext.h"
#include "backend/values/NoteIntervals.h"
#include "gui/framework/GdiManager.h"
#include "gui/framework/Look.h"
#include "gui/framework/PopupMenu.h"
#include "gui/framework/Properties.h"
#include "gui/framework/TemporaryEdit.h"

namespace Gui
{
namespace
{
constexpr std::int32_t QUARTER_NOTE = 480;
constexpr int LABEL_WIDTH = 32;

QString labelOf(TimeIntervalType kind)
{
    return kind.kind == TimeIntervalType::Kind::ppq ? QStringLiteral("PPQ") : QStringLiteral("NOTE");
}

/// Steps through the named lengths. From a length without a name the first step goes to the nearest one.
std::int32_t steppedByNotes(std::int32_t from, int steps)
{
    const bool isBetween = noteIntervalIndex(from) == 0 && noteIntervalFromIndex(NOTE_INTERVALS) > from;
    const std::int32_t start = nearestNoteIntervalIndex(from) - (isBetween && steps > 0 ? 1 : 0);
    const std::int32_t ppq = noteIntervalFromIndex(std::clamp(start + steps, 1, NOTE_INTERVALS));
    return steps > 0 ? std::max(ppq, from) : std::min(ppq, from);
}
}  // namespace

TimeIntervalCtl::TimeIntervalCtl(GuiContext& guiContext, std::int32_t lowest, std::int32_t highest, QWidget* parent)
    : QWidget(parent),
      context(guiContext),
      value(std::clamp(QUARTER_NOTE, lowest, highest)),
      minimum(lowest),
      maximum(highest),
      label(guiContext, 0, labelOf(kind), {}, this),
      labelWidth(LABEL_WIDTH),
      capture(guiContext, *this)
{
    setFocusPolicy(Qt::TabFocus);  // a click must not take the focus from playing
    setContextMenuPolicy(Qt::PreventContextMenu);
    label.setListener(this);
}

// --- the value

void TimeIntervalCtl::setKind(TimeIntervalType newKind)
{
    kind = newKind;
    label.setText(labelOf(kind));
    update();
}

void TimeIntervalCtl::setValue(std::int32_t ppq)
{
    value = std::clamp(ppq, minimum, maximum);
    accessibleValueChanged(*this, getText());
    update();
}

void TimeIntervalCtl::setLimits(std::int32_t lowest, std::int32_t highest)
{
    minimum = lowest;
    maximum = highest;
    setValue(value);
}

QString TimeIntervalCtl::getText() const
{
    return showsNotes() ? QString::fromStdString(noteIntervalName(value)) : QString::number(value);
}

std::int32_t TimeIntervalCtl::stepped(std::int32_t from, int steps) const
{
    if (steps == 0) return from;
    return showsNotes() ? steppedByNotes(from, steps) : from + steps;
}

/// A change by the user, which the listener is notified of.
void TimeIntervalCtl::changeValue(std::int32_t ppq)
{
    const std::int32_t before = value;
    setValue(ppq);
    if (value != before && listener != nullptr) listener->valueChanged(*this, value);
}

void TimeIntervalCtl::buttonChanged(int, bool)
{
    using Kind = TimeIntervalType::Kind;
    setKind({showsNotes() ? Kind::ppq : Kind::noteInterval});
    if (listener != nullptr) listener->kindChanged(*this, kind, value);
}

// --- the mouse and the keys

void TimeIntervalCtl::mousePressEvent(QMouseEvent* event)
{
    const bool right = event->button() == Qt::RightButton;
    if (capture.isCaptured() || (event->button() != Qt::LeftButton && !right)) return event->ignore();
    captureButton = event->button();
    capture.begin(event->globalPosition(), value, right ? MouseCapture::Pointer::red : MouseCapture::Pointer::plain);
}

void TimeIntervalCtl::mouseMoveEvent(QMouseEvent* event)
{
    if (!capture.isCaptured()) return event->ignore();
    const int steps = capture.takeSteps(event->globalPosition());
    if (capture.hasMoved()) changeValue(stepped(capture.getValue(), steps));
}

void TimeIntervalCtl::mouseReleaseEvent(QMouseEvent* event)
{
    if (!capture.isCaptured() || event->button() != captureButton) return;
    capture.end();
    if (!capture.hasMoved()) click();
}

void TimeIntervalCtl::wheelEvent(QWheelEvent* event)
{
    if (Property::isSet(*this, Property::NOWHEEL)) return event->ignore();
    changeValue(stepped(value, wheel.takeNotches(*event)));
    event->accept();
}

void TimeIntervalCtl::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
        case Qt::Key_Up:
            return changeValue(stepped(value, 1));
        case Qt::Key_Down:
            return changeValue(stepped(value, -1));
        case Qt::Key_Space:
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return click();
        default:
            return event->ignore();
    }
}

void TimeIntervalCtl::click()
{
    if (showsNotes())
        openMenu();
    else
        openEdit();
}

void TimeIntervalCtl::openMenu()
{
    auto* menu = new PopupMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (std::int32_t index = 1; index <= NOTE_INTERVALS; ++index)
        if (const auto ppq = noteIntervalFromIndex(index); ppq >= minimum && ppq <= maximum)
            menu->addItem({.text = QString::fromStdString(noteIntervalName(ppq)), .id = ppq});
    menu->setSelected(value);
    menu->onChosen = [this](int ppq) { changeValue(ppq); };
    menu->show(mapToGlobal(valueArea().bottomLeft()));
}

void TimeIntervalCtl::openEdit()
{
    auto* edit = new TemporaryEdit(*this, valueArea(), getText());
    edit->setProperty(Property::MIN, minimum);
    edit->setProperty(Property::MAX, maximum);
    edit->onCommit = [this](const QString& text) {
        bool isNumber = false;
        const qlonglong typed = text.trimmed().toLongLong(&isNumber);
        if (isNumber) changeValue(static_cast<std::int32_t>(std::clamp<qlonglong>(typed, minimum, maximum)));
    };
}

// --- the look

QSize TimeIntervalCtl::sizeHint() const
{
    return {labelWidth + fontMetrics().horizontalAdvance(QStringLiteral("1/16 Triplet")) + 10, 16};
}

QRect TimeIntervalCtl::valueArea() const
{
    return rect().adjusted(labelSide == LabelSide::left ? labelWidth : 0, 0,
                           labelSide == LabelSide::right ? -labelWidth : 0, 0);
}

void TimeIntervalCtl::setLabel(LabelSide side, int width)
{
    labelSide = side;
    labelWidth = width;
    placeLabel();
    update();
}

void TimeIntervalCtl::placeLabel()
{
    label.setGeometry(labelSide == LabelSide::left ? 0 : width() - labelWidth, 0, labelWidth, height());
}

void TimeIntervalCtl::resizeEvent(QResizeEvent*) { placeLabel(); }

void TimeIntervalCtl::paintEvent(QPaintEvent*)
{
    using Role = GdiManager::Role;
    const GdiManager& gdi = context.getGdiManager();
    QPainter painter(this);
    painter.fillRect(rect(), gdi.getColour(Role::background));
    Look::drawFrame(painter, gdi, valueArea(), isEnabled());
    const bool gray =
        !isEnabled() || Property::isSet(*this, Property::GRAYTEXT) || Property::isSet(*this, Property::DISABLED);
    painter.setPen(gdi.getColour(gray ? Role::labelDisabled : Role::text));
    painter.drawText(valueArea(), Qt::AlignCenter | Qt::TextSingleLine, getText());
    if (hasFocus()) Look::drawFocus(painter, gdi, valueArea().adjusted(1, 1, -1, -1));
}
}  // namespace Gui
