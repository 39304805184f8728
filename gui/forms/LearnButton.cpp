#include "gui/forms/LearnButton.h"

#include <QApplication>
#include <QKeyEvent>

#include "gui/framework/Learner.h"
#include "gui/framework/Properties.h"
#include "gui/framework/TextFocus.h"

namespace Gui::Forms
{
using Backend::Learned;
using Backend::LearnKinds;

namespace
{
QString helpFor(const LearnKinds& kinds)
{
    QStringList what;
    if (kinds.key) what << LearnButton::tr("press a key of the computer, with Shift, Control and Alt as they are held");
    if (kinds.midiEvent) what << LearnButton::tr("play a note, or move a control, of a MIDI device");
    if (kinds.joystickButton) what << LearnButton::tr("press a button of a joystick");
    if (kinds.joystickAxis) what << LearnButton::tr("move an axis of a joystick by a quarter of its way");
    return LearnButton::tr("Learn: click, then %1. It is filled in and not played. Escape ends it.")
        .arg(what.join(LearnButton::tr(", or ")));
}
}  // namespace

LearnButton::LearnButton(Learner& owner, const LearnKinds& learnedKinds, QWidget* parent)
    : QPushButton(tr("LEARN"), parent), learner(owner), kinds(learnedKinds)
{
    setCheckable(true);
    setFocusPolicy(Qt::TabFocus);
    setAccessibleName(tr("Learn"));
    Property::setHelp(*this, helpFor(kinds));
    connect(this, &QPushButton::clicked, this, [this](bool on) { on ? start() : end(); });
}

void LearnButton::start()
{
    request = learner.start(kinds, *this, [this](const Learned* learned) {
        setWaiting(false);
        const auto callback = onLearned;
        if (learned != nullptr && callback) callback(learned->input);
    });
    setWaiting(true);
}

void LearnButton::end()
{
    learner.end(request);
    setWaiting(false);
}

void LearnButton::setWaiting(bool on)
{
    setChecked(on);
    qApp->removeEventFilter(this);
    disconnect(focusConnection);
    if (!on) return;
    qApp->installEventFilter(this);
    focusConnection =
        connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, const QWidget* to) { focusMoved(to); });
}

void LearnButton::focusMoved(const QWidget* to)
{
    if (to == nullptr || to->window() != window() || takesText(to)) end();
}

bool LearnButton::eventFilter(QObject*, QEvent* event)
{
    if (event->type() != QEvent::KeyPress || static_cast<QKeyEvent*>(event)->key() != Qt::Key_Escape) return false;
    end();
    return true;
}

void LearnButton::hideEvent(QHideEvent* event)
{
    end();
    QPushButton::hideEvent(event);
}
}  // namespace Gui::Forms
