#pragma once

#include "backend/engine/WalkingArpeggio.h"

namespace Backend::ArpeggioManagement::Arpeggios
{
/// Plays the held notes one after another, up to the highest and down again; the notes at the two ends sound once. With
/// a sequence it rises through all nodes, one pass for each node, before it falls back through them.
class UpDownArpeggio final : public WalkingArpeggio
{
public:
    explicit UpDownArpeggio(const ArpeggioSetting& setting) : WalkingArpeggio(setting, Order::rising, EqualKeys::kept)
    {
    }

protected:
    void step(ArpeggioVoice& voice) override;
    void rewind() override;

private:
    void turnDown(ArpeggioVoice& voice);
    void turnUp(ArpeggioVoice& voice);

    bool descending = false;
};
}  // namespace Backend::ArpeggioManagement::Arpeggios
