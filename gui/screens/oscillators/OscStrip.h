#pragma once

#include <QWidget>
#include <functional>
#include <optional>

#include "backend/model/Oscillator.h"
#include "gui/framework/TimeIntervalCtl.h"

class QAbstractButton;

namespace Gui
{
class GuiContext;
class Knob;
}  // namespace Gui

namespace Gui::Oscillators
{
class OscWave;

/// An oscillator on the screen: its number, start and stop, the speed as a knob and as a length, its wave with the
/// present value, and the name of its event. The GUI thread.
class OscStrip final : public QWidget, private TimeIntervalCtl::Listener
{
public:
    using Oscillator = Backend::Oscillators::Oscillator;

    static constexpr int HEIGHT = 36;  ///< logical pixels
    static constexpr int WIDTH = 944;

    /// The context must outlive it.
    OscStrip(GuiContext& owner, QWidget* list);

    // What the user does
    std::function<void(bool on)> onPlaying;
    /// The knob: pulses per cycle.
    std::function<void(int speed)> onTurn;
    /// The length: pulses per cycle, possibly below the fastest speed.
    std::function<void(int speed)> onSpeed;
    std::function<void(TimeIntervalType mode)> onMode;

    /// All of it but the value.
    void showOscillator(const Oscillator& oscillator, const QString& help);
    void showValue(std::optional<int> value);

    struct Marks {
        bool selected = false;
        bool current = false;  ///< keys start from it

        bool operator==(const Marks&) const = default;
    };
    void setMarks(const Marks& newMarks);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void valueChanged(TimeIntervalCtl&, std::int32_t ppq) override { onSpeed(ppq); }
    void kindChanged(TimeIntervalCtl&, TimeIntervalType kind, std::int32_t) override { onMode(kind); }

    GuiContext& context;
    Oscillator shown;
    Marks marks;
    QAbstractButton* play;  // these are owned by Qt
    Knob* knob;
    TimeIntervalCtl* speed;
    OscWave* wave;
};
}  // namespace Gui::Oscillators
