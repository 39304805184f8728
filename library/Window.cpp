#include "api/OrvFactory.h"
#include "gui/window/OrvGuiFactory.h"

namespace
{
/// When the library is loaded: the backend knows of no window by itself.
[[maybe_unused]] const bool hasWindow = [] {
    Backend::OrvFactory::setGuiFactory(&Gui::OrvGuiFactory::createOrvGui);
    return true;
}();
}  // namespace
