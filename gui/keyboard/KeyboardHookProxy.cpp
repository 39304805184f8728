#include "gui/keyboard/KeyboardHookProxy.h"

#include <filesystem>

#include "keyboardhook/KeyboardHook.h"
#include "platform/DbgStream.h"
#include "platform/Module.h"
#include "platform/Path.h"

namespace Gui
{
KeyboardHookProxy::KeyboardHookProxy(const std::string& folder)
{
    const auto path = std::filesystem::path(folder) / getLibraryFileName("KeyboardHook_32");
    library = openLibrary(textOf(path), reason);
    if (library != nullptr) {
        find<decltype(::setWindowHandle)>(setWindowHandle, "setWindowHandle");
        find<decltype(::setEnabled)>(setEnabled, "setEnabled");
        find<decltype(::setExcludeKey)>(setExcludeKey, "setExcludeKey");
        find<decltype(::clearExclude)>(clearExclude, "clearExclude");
        find<decltype(::clearControlKeys)>(clearControlKeys, "clearControlKeys");
        find<decltype(::addControlKey)>(addControlKey, "addControlKey");
    }
    if (!reason.empty()) WindowsLib::DbgStream() << "No global keyboard: " << reason;
}

// Releases the keys before the code is unloaded.
KeyboardHookProxy::~KeyboardHookProxy()
{
    if (clearControlKeys != nullptr) clearControlKeys();
    if (setEnabled != nullptr) setEnabled(0);
    if (setWindowHandle != nullptr) setWindowHandle(nullptr);
    closeLibrary(library);
}

template <class Function>
void KeyboardHookProxy::find(Function*& function, const char* name)
{
    function = findFunction<Function>(library, name);
    if (function == nullptr) reason = std::string("it has no function ") + name;
}
}  // namespace Gui
