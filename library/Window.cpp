#include "api/OrvFactory.h"
#include "gui/window/OrvGuiFactory.h"

namespace
{
/// When the library is loaded: the backend does not depend on the window.
[[maybe_unused]] const bool hasWindow = [] {
    Backend::OrvFactory::setGuiFactory(&Gui::OrvGuiFactory::createOrvGui);
    return true;
}();
}  // namespace
