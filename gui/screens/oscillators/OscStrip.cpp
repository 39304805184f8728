#include "gui/screens/oscillators/OscStrip.h"

#include <QAbstractButton>
#include <QPainter>

#include "api/GuiContext.h"
#include "backend/values/NoteIntervals.h"
#include "backend/values/Scaling.h"
#include "gui/framework/Knob.h"
#include "gui/framework/Look.h"
#include "gui/framework/Properties.h"
#include "gui/screens/oscillators/OscRecords.h"
#include "gui/screens/oscillators/OscWave.h"

namespace Gui::Oscillators
{
using Role = GdiManager::Role;

namespace
{
// Logical pixels
constexpr QRect NUMBER(2, 2, 30, 32);
constexpr QRect PLAY(36, 6, 30, 24);
constexpr QRect KNOB(74, 2, 32, 32);
constexpr QRect SPEED(114, 8, 140, 20);
constexpr QRect WAVE(264, 3, 250, 30);
constexpr QRect EVENT(528, 2, 412, 32);
constexpr int LABEL_WIDTH = 40;

/// A triangle that starts, a square that stops.
class PlayButton final : public QAbstractButton
{
public:
    PlayButton(const GdiManager& manager, QWidget* strip) : QAbstractButton(strip), gdi(manager)
    {
        setCheckable(true);
        setFocusPolicy(Qt::TabFocus);  // a click must not take the focus from playing
        setContextMenuPolicy(Qt::PreventContextMenu);
        setAttribute(Qt::WA_OpaquePaintEvent);
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        Look::drawButton(painter, gdi, rect(), {.label = {}, .pressed = isChecked(), .isSwitch = true}, this);
        const double side = gdi.px(10);
        const QRectF mark(QRectF(rect()).center() - QPointF(side / 2, side / 2), QSizeF(side, side));
        if (isChecked())
            painter.fillRect(mark, Look::inkOn(gdi.getColour(Role::selectedButton)));
        else
            Look::drawTriangle(painter, mark, Look::Direction::right, gdi.getColour(Role::text));
        if (hasFocus()) Look::drawFocus(painter, gdi, rect());
    }

private:
    const GdiManager& gdi;
};
}  // namespace

/// The menu offers every named length, also the one below the fastest speed.
OscStrip::OscStrip(GuiContext& owner, QWidget* list)
    : QWidget(list),
      context(owner),
      play(new PlayButton(owner.getGdiManager(), this)),
      knob(new Knob(owner, this)),
      speed(new TimeIntervalCtl(owner, noteIntervalFromIndex(1), Oscillator::SLOWEST, this)),
      wave(new OscWave(owner.getGdiManager(), this))
{
    connect(play, &QAbstractButton::clicked, this, [this](bool on) { onPlaying(on); });
    knob->dragByRightButton();
    knob->onChange = [this](int position) {
        onTurn(scaleLogarithmic(position, Oscillator::FASTEST, Oscillator::SLOWEST));
    };
    speed->setListener(this);
    speed->getLabel().setFocusPolicy(Qt::TabFocus);
    Property::setHelp(*play, tr("Starts the oscillator, or stops it; all that are selected if it is one of them."));
    Property::setHelp(*knob, tr("Speed, from one cycle in 16 whole notes to 12 in a quarter note: drag, or use the "
                                "wheel. After a middle click it follows the mouse until the next click."));
    Property::setHelp(*speed, tr("Length of a cycle. NOTE: a click opens the menu of note lengths. PPQ: a click edits "
                                 "the pulses, 480 to a quarter note. The wheel changes it, too."));
    Property::setHelp(speed->getLabel(), tr("NOTE shows the speed as a note length, PPQ in pulses."));
}

void OscStrip::showOscillator(const Oscillator& oscillator, const QString& help)
{
    knob->showValue(logarithmicKnob(oscillator.speed, Oscillator::FASTEST, Oscillator::SLOWEST));
    if (speed->getKind() != oscillator.speedMode) speed->setKind(oscillator.speedMode);
    if (speed->getValue() != oscillator.speed) speed->setValue(oscillator.speed);
    play->setChecked(oscillator.playing);
    if (shown == oscillator) return;
    shown = oscillator;
    Property::setHelp(*this, help);
    const auto name = [number = shown.id + 1](const QString& text) { return text.arg(number); };
    play->setAccessibleName(name(tr("Oscillator %1 runs")));
    knob->setAccessibleName(name(tr("Oscillator %1 speed")));
    speed->setAccessibleName(name(tr("Oscillator %1 length")));
    speed->getLabel().setAccessibleName(name(tr("Oscillator %1 note or pulses")));
    wave->showOscillator(shown);
    update();
}

void OscStrip::showValue(std::optional<int> value) { wave->showValue(value); }

void OscStrip::setMarks(const Marks& newMarks)
{
    if (marks == newMarks) return;
    marks = newMarks;
    update();
}

void OscStrip::resizeEvent(QResizeEvent*)
{
    const GdiManager& gdi = context.getGdiManager();
    play->setGeometry(gdi.px(PLAY));
    knob->setGeometry(gdi.px(KNOB));
    speed->setGeometry(gdi.px(SPEED));
    speed->setLabel(TimeIntervalCtl::LabelSide::right, gdi.px(LABEL_WIDTH));
    wave->setGeometry(gdi.px(WAVE));
}

void OscStrip::paintEvent(QPaintEvent*)
{
    const GdiManager& gdi = context.getGdiManager();
    QPainter painter(this);
    painter.fillRect(rect(), gdi.getColour(Role::background));
    const QRect number = gdi.px(NUMBER);
    if (marks.selected)
        painter.fillRect(number, gdi.getColour(Role::selectedButton));
    else
        Look::drawFrame(painter, gdi, number, true);
    painter.setPen(marks.selected ? Look::inkOn(gdi.getColour(Role::selectedButton)) : gdi.getColour(Role::text));
    painter.drawText(number, Qt::AlignCenter, QString::number(shown.id + 1));
    painter.setPen(gdi.getColour(shown.midiMessage.isValid() ? Role::label : Role::labelDisabled));
    const QRect event = gdi.px(EVENT);
    painter.drawText(event, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     painter.fontMetrics().elidedText(eventNameOf(shown), Qt::ElideRight, event.width()));
    if (marks.current) Look::drawFocus(painter, gdi, rect());
}
}  // namespace Gui::Oscillators
