#pragma once

#include "backend/engine/WalkingArpeggio.h"

namespace Backend::ArpeggioManagement::Arpeggios
{
/// From the lowest held note up, and again.
class UpArpeggio final : public WalkingArpeggio
{
public:
    explicit UpArpeggio(const ArpeggioSetting& setting) : WalkingArpeggio(setting, Order::rising, EqualKeys::ignored) {}
};
}  // namespace Backend::ArpeggioManagement::Arpeggios
