#pragma once

#include "backend/engine/WalkingArpeggio.h"

namespace Backend::ArpeggioManagement::Arpeggios
{
/// Plays the held notes one after another, from the highest to the lowest, and again.
class DownArpeggio final : public WalkingArpeggio
{
public:
    explicit DownArpeggio(const ArpeggioSetting& setting) : WalkingArpeggio(setting, Order::falling, EqualKeys::ignored)
    {
    }
};
}  // namespace Backend::ArpeggioManagement::Arpeggios
