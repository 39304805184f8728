#pragma once

#include "api/DisplayListener.h"

namespace Host
{
/// Prints the display's text on standard output.
class LiveDisplay final : public Backend::Display::DisplayListener
{
public:
    void addText(const char* text) override;
    void setText(const char* text) override { addText(text); }
};
}  // namespace Host
