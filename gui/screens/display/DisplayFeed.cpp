#include "gui/screens/display/DisplayFeed.h"

#include <utility>

namespace Gui::Display
{
DisplayFeed::DisplayFeed(WindowHandle target) : window(std::move(target)) {}

void DisplayFeed::addText(const char* text) { Backend::notify(window, DisplayMessage::ADD_TEXT, text); }

void DisplayFeed::setText(const char* text) { Backend::notify(window, DisplayMessage::SET_TEXT, text); }
}  // namespace Gui::Display
