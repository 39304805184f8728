#pragma once

#include "backend/engine/WalkingArpeggio.h"

namespace Backend::ArpeggioManagement::Arpeggios
{
/// From the highest held note down, and again.
class DownArpeggio final : public WalkingArpeggio
{
public:
    explicit DownArpeggio(const ArpeggioSetting& setting) : WalkingArpeggio(setting, Order::falling, EqualKeys::ignored)
    {
    }
};
}  // namespace Backend::ArpeggioManagement::Arpeggios
