#include "gui/screens/display/EventFilter.h"

#include <QRegularExpression>

namespace Gui::Display
{
EventColumns::EventColumns(const QString& line)
{
    static const QRegularExpression BEFORE(QStringLiteral(R"(^(\d+  )?(\d\d:\d\d:\d\d\.\d{3}  )?)"));
    const QStringList columns = line.split('\t');
    port = columns[0].mid(BEFORE.match(columns[0]).capturedLength());
    channel = columns.value(1);
    event = columns.value(2);
    first = columns.value(3);
    second = columns.value(4);
}

bool EventFilter::passes(const QString& line) const
{
    const EventColumns columns(line);
    if (!columns.isEvent()) return true;
    return (port.isEmpty() || port == columns.port) && (channel == 0 || columns.channel == QString::number(channel)) &&
           (events.isEmpty() || events.contains(columns.event));
}
}  // namespace Gui::Display
