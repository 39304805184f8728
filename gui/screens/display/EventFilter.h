#pragma once

#include <QString>
#include <QStringList>

namespace Gui::Display
{
/// Which lines of the log are shown. A line without columns, such as the first one, always is.
struct EventFilter {
    QString port{};        ///< as in the log, "> " before an input; empty for all
    int channel = 0;       ///< from 1; 0 for all, and for events without one
    QStringList events{};  ///< their names; empty for all

    bool passes(const QString& line) const;
};

/// The columns of a line of the log: what stands before the first one, a number and a time, is left out.
struct EventColumns {
    explicit EventColumns(const QString& line);

    bool isEvent() const { return !event.isEmpty(); }

    QString port;
    QString channel;  ///< empty for an event without one
    QString event;
    QString first;  ///< its values
    QString second;
};
}  // namespace Gui::Display
