#include "gui/screens/output/ChannelLights.h"

#include <QPaintEvent>
#include <QPainter>
#include <chrono>

#include "gui/framework/GdiManager.h"
#include "gui/framework/Properties.h"

namespace Gui::Output
{
using Role = GdiManager::Role;

namespace
{
constexpr auto GLOW = std::chrono::milliseconds(120);
constexpr int SIDE = 14;
constexpr int PITCH = SIDE + 2;
}  // namespace

ChannelLights::ChannelLights(GdiManager& manager, QWidget* parent) : QWidget(parent), gdi(manager)
{
    rescale();
    setAccessibleName(tr("Channels"));
    Property::setHelp(*this, tr("MIDI channels 1 to 16: each is lit while events are sent on it."));
    connect(&look, &QTimer::timeout, this, [this] {
        show(played);
        played.reset();
        if (lit.none()) look.stop();
    });
}

void ChannelLights::displayMidiOutputEvent(const Backend::MidiEngine::OrvMidiMessage& event)
{
    const auto channel = event.getChannel();
    if (event.getStatus() >= Backend::MidiEngine::MessageType::systemExclusive) return;
    if (channel < 0 || channel >= CHANNELS) return;
    played.set(static_cast<std::size_t>(channel));
    if (isLit(channel)) return;
    show(lit | played);
    if (!look.isActive()) look.start(GLOW);
}

void ChannelLights::rescale() { setFixedSize(CHANNELS * gdi.px(PITCH), gdi.px(SIDE)); }

QRect ChannelLights::squareOf(int channel) const
{
    const int side = gdi.px(SIDE);
    return {channel * gdi.px(PITCH), 0, side, side};
}

void ChannelLights::clear()
{
    played.reset();
    show(played);
}

void ChannelLights::show(const Channels& channels)
{
    const Channels changed = lit ^ channels;
    lit = channels;
    for (int channel = 0; channel < CHANNELS; ++channel)
        if (changed.test(static_cast<std::size_t>(channel))) update(squareOf(channel));
}

void ChannelLights::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    painter.setFont(gdi.getFont(GdiManager::FontRole::font3));
    for (int channel = 0; channel < CHANNELS; ++channel) {
        const QRect square = squareOf(channel);
        if (!event->region().intersects(square)) continue;
        painter.fillRect(square, gdi.getColour(isLit(channel) ? Role::selectedButton : Role::unusedButton));
        if (!isLit(channel)) painter.fillRect(square.adjusted(1, 1, -1, -1), gdi.getColour(Role::background));
        painter.setPen(gdi.getColour(isLit(channel) ? Role::background : Role::unselectedButton));
        painter.drawText(square, Qt::AlignCenter, QString::number(channel + 1));
    }
}
}  // namespace Gui::Output
