#pragma once

#include "backend/display/DisplayListener.h"
#include "platform/WindowHandle.h"

namespace Gui::Display
{
/// What the display's thread tells the window, each with its text, a string. Numbers above those of the backend's
/// sections, see `GuiMessages.h`.
namespace DisplayMessage
{
enum Number : unsigned int { ADD_TEXT = 35719, SET_TEXT = 35720 };
}

/// Carries the display's text from its thread to the window. It holds on to nothing but the window's queue, so the
/// window may close while a call of it is under way.
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
