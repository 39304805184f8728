#include "backend/engine/ChordArpeggio.h"
#include "backend/engine/DownArpeggio.h"
#include "backend/engine/UpArpeggio.h"
#include "backend/engine/UpDownArpeggio.h"

namespace Backend::ArpeggioManagement
{
std::unique_ptr<Arpeggio> createArpeggio(const ArpeggioSetting& setting)
{
    const ArpeggioSetting played = setting.normalized();
    switch (played.type) {
        case ArpeggioSetting::Type::up:
            return std::make_unique<Arpeggios::UpArpeggio>(played);
        case ArpeggioSetting::Type::down:
            return std::make_unique<Arpeggios::DownArpeggio>(played);
        case ArpeggioSetting::Type::upDown:
            return std::make_unique<Arpeggios::UpDownArpeggio>(played);
        case ArpeggioSetting::Type::chord:
            break;
    }
    return std::make_unique<Arpeggios::ChordArpeggio>(played);
}
}  // namespace Backend::ArpeggioManagement
