#include "gui/screens/display/DisplayFeed.h"

#include <string>
#include <utility>

namespace Gui::Display
{
DisplayFeed::DisplayFeed(WindowHandle target) : window(std::move(target)) {}

void DisplayFeed::addText(const char* text)
{
    window.post({.number = DisplayMessage::ADD_TEXT, .payload = Payload::of(std::string(text))});
}

void DisplayFeed::setText(const char* text)
{
    window.post({.number = DisplayMessage::SET_TEXT, .payload = Payload::of(std::string(text))});
}
}  // namespace Gui::Display
