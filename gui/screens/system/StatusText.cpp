#include "gui/screens/system/StatusText.h"

#include <QPainter>
#include <chrono>

#include "gui/framework/GdiManager.h"
#include "gui/framework/Look.h"

namespace Gui::System
{
using Role = GdiManager::Role;

namespace
{
constexpr auto MESSAGE_TIME = std::chrono::seconds(3);
constexpr int STATUS_MARGIN = 4;
}  // namespace

StatusText::StatusText(const GdiManager& manager, QWidget* parent) : QAbstractButton(parent), gdi(manager)
{
    setFocusPolicy(Qt::TabFocus);
    messageGone.setSingleShot(true);
    messageGone.setInterval(MESSAGE_TIME);
    connect(&messageGone, &QTimer::timeout, this, [this] { change(message, {}); });
}

void StatusText::showState(const QString& text) { change(state, text); }

void StatusText::showTrouble(const QString& text) { change(trouble, text); }

void StatusText::showMessage(const QString& text)
{
    change(message, text);
    messageGone.start();
}

QString StatusText::getShown() const { return !message.isEmpty() ? message : hasTrouble() ? trouble : state; }

void StatusText::change(QString& text, const QString& newText)
{
    const QString before = getShown();
    text = newText;
    if (getShown() == before) return;
    setToolTip(getShown());
    update();
    accessibleValueChanged(*this, getShown());
}

void StatusText::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QRect room = rect().adjusted(gdi.px(STATUS_MARGIN), 0, -gdi.px(STATUS_MARGIN), 0);
    const bool isTrouble = message.isEmpty() && hasTrouble();
    painter.setFont(gdi.getFont(isTrouble ? GdiManager::FontRole::font7 : GdiManager::FontRole::font9));
    painter.setPen(gdi.getColour(isTrouble ? Role::frame : message.isEmpty() ? Role::label : Role::text));
    painter.drawText(room, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                     painter.fontMetrics().elidedText(getShown(), Qt::ElideRight, room.width()));
    if (hasFocus()) Look::drawFocus(painter, gdi, rect());
}
}  // namespace Gui::System
