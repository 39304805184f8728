#pragma once

#include "backend/engine/WalkingArpeggio.h"

namespace Backend::ArpeggioManagement::Arpeggios
{
/// Up to the highest held note and down again; the notes at the two ends sound once. With a sequence it rises through
/// all nodes before it falls through them, a pass a node.
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
