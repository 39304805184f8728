#pragma once

#include <string>

#include "api/DisplayListener.h"
#include "backend/messages/TypedMessage.h"
#include "platform/WindowHandle.h"

namespace Gui::Display
{
/// The messages of the display's thread to the window. The numbers are above those of `GuiMessages.h`.
namespace DisplayMessage
{
inline constexpr Backend::TypedMessage<std::string> ADD_TEXT{35719, "AddText"};
inline constexpr Backend::TypedMessage<std::string> SET_TEXT{35720, "SetText"};
}  // namespace DisplayMessage

/// Posts the display's text from its thread to the window. It owns only a handle of the window's queue, so the window
/// may close during a call.
class DisplayFeed final : public Backend::Display::DisplayListener
{
public:
    explicit DisplayFeed(WindowHandle target);

    void addText(const char* text) override;
    void setText(const char* text) override;

private:
    const WindowHandle window;
};
}  // namespace Gui::Display
