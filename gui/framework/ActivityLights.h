#pragma once

#include <QStringList>
#include <QTimer>
#include <cstdint>

#include "gui/framework/Indicator.h"

namespace Gui
{
/// A row of lights with a label before it, one for each of up to 64 ports. A light is lit by an event of its port and
/// goes out soon after the last one. The GUI thread.
class ActivityLights final : public Indicator
{
public:
    ActivityLights(const GdiManager& manager, const QString& labelText, QWidget* parent);

    /// The names of the ports; those that are left out, with an empty name, have no light.
    void setPorts(const QStringList& portNames);
    /// Events came by these ports, by bits.
    void flash(std::uint64_t ports);

    bool isLit(int port) const { return (lit >> port & 1) != 0; }

    /// The names of the lights, those that are lit first said to be active.
    QString getAccessibleValue() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const QString label;
    QStringList names;
    std::uint64_t lit = 0;
    std::uint64_t seen = 0;  // events since the last timeout
    QTimer look;
};
}  // namespace Gui
