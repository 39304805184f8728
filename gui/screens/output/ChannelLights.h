#pragma once

#include <QTimer>
#include <QWidget>
#include <bitset>

#include "backend/values/OrvMidiMessage.h"

namespace Gui
{
class GdiManager;
}

namespace Gui::Output
{
/// A square for each of the 16 channels, which is lit when an event is sent on its channel and goes out soon after the
/// last one.
class ChannelLights final : public QWidget
{
public:
    static constexpr int CHANNELS = 16;

    ChannelLights(GdiManager& manager, QWidget* parent);

    void displayMidiOutputEvent(const Backend::MidiEngine::OrvMidiMessage& event);
    void clear();
    /// The scale has changed.
    void rescale();

    /// Channels from 0.
    bool isLit(int channel) const { return lit.test(static_cast<std::size_t>(channel)); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    using Channels = std::bitset<CHANNELS>;

    void show(const Channels& channels);
    QRect squareOf(int channel) const;

    GdiManager& gdi;
    Channels lit;
    Channels played;  // channels with events since the last timeout
    QTimer look;
};
}  // namespace Gui::Output
