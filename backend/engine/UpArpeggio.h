#pragma once

#include "backend/engine/WalkingArpeggio.h"

namespace Backend::ArpeggioManagement::Arpeggios
{
/// Plays the held notes one after another, from the lowest to the highest, and again.
class UpArpeggio final : public WalkingArpeggio
{
public:
    explicit UpArpeggio(const ArpeggioSetting& setting) : WalkingArpeggio(setting, Order::rising, EqualKeys::ignored) {}
};
}  // namespace Backend::ArpeggioManagement::Arpeggios
