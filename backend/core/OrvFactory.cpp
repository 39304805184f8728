#include "api/OrvFactory.h"

#include <memory>
#include <new>

#include "backend/core/Orv.h"

namespace Backend
{
namespace
{
constinit GuiFactory newGuiFactory = nullptr;
}

void OrvFactory::setGuiFactory(GuiFactory factory) { newGuiFactory = factory; }

OrvIF* OrvFactory::createOrv(const std::string& applicationName, MidiEngine::MidiPlayer& player, bool retroRecordOption)
{
    try {
        auto orv = std::make_unique<Orv>(applicationName, player,
                                         retroRecordOption ? RetroRecord::Restore::yes : RetroRecord::Restore::no);
        orv->setGuiFactory(newGuiFactory);
        return orv.release();
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}
}  // namespace Backend
