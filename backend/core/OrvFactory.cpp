#include "backend/core/OrvFactory.h"

#include <new>

#include "backend/core/Orv.h"

namespace Backend
{
OrvIF* OrvFactory::createOrv(const std::string& applicationName, MidiEngine::MidiPlayer& player, bool retroRecordOption)
{
    try {
        return new Orv(applicationName, player,
                       retroRecordOption ? RetroRecord::Restore::yes : RetroRecord::Restore::no);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}
}  // namespace Backend
