#include "gui/screens/controls/ControlCell.h"

#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QSignalBlocker>
#include <algorithm>
#include <utility>

#include "api/GuiContext.h"
#include "gui/framework/Fader.h"
#include "gui/framework/Knob.h"
#include "gui/framework/Look.h"
#include "gui/framework/Properties.h"
#include "gui/screens/controls/ValueEdit.h"

namespace Gui::Controls
{
using Type = Backend::Controls::ControlType::Kind;
using Role = GdiManager::Role;

namespace
{
constexpr int FRAME = 2;  // logical pixels, as both
constexpr int CAPTION = 13;
constexpr int STEPS = 128;  // of a drag over the whole range
constexpr int PAGES = 12;
}  // namespace

ControlCell::ControlCell(GuiContext& owner, const Control& control, QWidget* grid)
    : QWidget(grid), context(owner), shown{.type = control.type}
{
    makeBody();
    if (body == nullptr) return;
    body->installEventFilter(this);
    body->setParent(this);
}

void ControlCell::makeBody()
{
    switch (const Type kind = shown.type.kind) {
        case Type::vfader:
        case Type::hfader:
            slider = new Fader(context, kind == Type::vfader ? Qt::Vertical : Qt::Horizontal, this);
            break;
        case Type::knob:
            slider = new Knob(context, this);
            break;
        case Type::edit:
            body = edit = new ValueEdit(this);
            edit->onChange = [this](int newValue) { setByUser(newValue); };
            edit->onLeave = [this] { onLeave(); };
            break;
        case Type::label:
            body = label = new QLabel(this);
            label->setTextFormat(Qt::PlainText);
            label->setWordWrap(true);
            label->setAlignment(Qt::AlignCenter);
            break;
        case Type::none:
            break;
    }
    if (slider == nullptr) return;
    body = slider;
    slider->onChange = [this](int newValue) { setByUser(newValue); };
    slider->onRelease = [this] { onRelease(); };
}

void ControlCell::setByUser(int newValue)
{
    value = newValue;
    update(getCaptionPlace());
    onValue(newValue);
}

bool ControlCell::shows(const Control& control) const
{
    Control same = control;
    same.value = shown.value;
    same.selected = shown.selected;
    return same == shown;
}

void ControlCell::showControl(const Control& control, const QString& help)
{
    shown = control;
    const QString caption = QString::fromStdString(shown.name);
    const auto [lowest, highest] = std::minmax(control.min, control.max);
    if (slider != nullptr) {
        const QSignalBlocker quiet(slider);
        const bool isReversed = control.max < control.min;
        const auto span = static_cast<std::int64_t>(highest) - lowest;
        const int step = static_cast<int>(std::max<std::int64_t>(1, (span + 1) / STEPS));
        slider->setRange(lowest, highest);
        slider->setInvertedAppearance(isReversed);
        slider->setInvertedControls(isReversed);
        slider->setSingleStep(step);
        slider->setPageStep(static_cast<int>(std::max<std::int64_t>(step, span / PAGES)));
        slider->setDragStep(step);
        slider->update();
    }
    if (edit != nullptr) edit->setRange(lowest, highest);
    if (label != nullptr) label->setText(caption);
    if (body != nullptr) {
        const QString event =
            shown.functions.empty()
                ? help
                : QString::fromStdString(shown.functions.front().midiEvent.getEventNameWithCcAndNoteDetail());
        body->setAccessibleName(caption.isEmpty() ? event : caption);
    }
    Property::setHelp(*this, help);
    if (body != nullptr) describeBody();
    update();
}

/// With what the help says.
void ControlCell::describeBody()
{
    const QString help = property(Property::HELP).toString();
    Property::setHelp(*body, help);
    if (marks.selected) body->setAccessibleDescription(tr("selected, %1").arg(help));
}

void ControlCell::showValue(int newValue)
{
    if (slider != nullptr) slider->showValue(newValue);
    if (edit != nullptr) edit->showValue(newValue);
    if (value == newValue || (slider != nullptr && slider->isSliderDown())) return;
    value = newValue;
    update(getCaptionPlace());
}

void ControlCell::setMarks(const Marks& newMarks)
{
    if (std::exchange(marks, newMarks) == newMarks) return;
    setAttribute(Qt::WA_TransparentForMouseEvents, marks.edited);
    if (body != nullptr) {
        describeBody();
        if (label == nullptr)
            body->setFocusPolicy(marks.edited ? Qt::NoFocus : edit != nullptr ? Qt::StrongFocus : Qt::TabFocus);
    }
    update();
}

// --- the picture

QRect ControlCell::getCaptionPlace() const
{
    const GdiManager& gdi = context.getGdiManager();
    return {gdi.px(FRAME), gdi.px(FRAME), width() - 2 * gdi.px(FRAME), gdi.px(CAPTION)};
}

void ControlCell::resizeEvent(QResizeEvent*)
{
    if (body == nullptr) return;
    const int frame = context.getGdiManager().px(FRAME);
    const int top = label != nullptr ? frame : getCaptionPlace().bottom() + 1;
    body->setGeometry(frame, top, width() - 2 * frame, height() - frame - top);
}

/// A selected one has a frame, the current one the ring of the focus around it.
void ControlCell::paintEvent(QPaintEvent*)
{
    const GdiManager& gdi = context.getGdiManager();
    QPainter painter(this);
    painter.fillRect(rect(), gdi.getColour(Role::background));
    if (label == nullptr) {
        const QRect place = getCaptionPlace().adjusted(gdi.px(1), 0, -gdi.px(1), 0);
        painter.setFont(gdi.getFont(GdiManager::FontRole::font9));
        const QString number = slider != nullptr ? QString::number(value) : QString();
        const int taken = painter.fontMetrics().horizontalAdvance(number);
        painter.setPen(gdi.getColour(Role::text));
        painter.drawText(place, Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine, number);
        painter.setPen(gdi.getColour(Role::label));
        const int room = place.width() - (taken > 0 ? taken + gdi.px(3) : 0);
        painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                         painter.fontMetrics().elidedText(QString::fromStdString(shown.name), Qt::ElideRight, room));
    }
    if (marks.selected) {
        const int line = gdi.px(FRAME);
        const QColor colour = gdi.getColour(Role::frame);
        for (const QRect& side : {QRect(0, 0, width(), line), QRect(0, height() - line, width(), line),
                                  QRect(0, 0, line, height()), QRect(width() - line, 0, line, height())})
            painter.fillRect(side, colour);
    } else if (marks.edited) {
        Look::drawFrame(painter, gdi, rect(), true);
    }
    if (marks.current) Look::drawFocus(painter, gdi, rect());
}

// --- the mouse

bool ControlCell::eventFilter(QObject*, QEvent* event)
{
    if (event->type() == QEvent::TouchBegin) return onPress({});
    if (event->type() != QEvent::MouseButtonPress) return false;
    const auto& press = static_cast<const QMouseEvent&>(*event);
    return press.button() == Qt::LeftButton && onPress(press.modifiers());
}

void ControlCell::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        onCaption(event->modifiers());
    else
        event->ignore();
}
}  // namespace Gui::Controls
