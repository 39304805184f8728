#include "backend/core/OrvFactory.h"

#include <new>

#include "backend/core/Orv.h"

namespace Backend
{
OrvIF* OrvFactory::createOrv(const std::string& applicationName, MidiEngine::MidiPlayer& player,
                             [[maybe_unused]] bool retroRecordOption)
{
    try {
        return new Orv(applicationName, player);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}
}  // namespace Backend
