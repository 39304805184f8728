#pragma once

#include "platform/Export.h"

namespace Backend::Display
{
/// Receives the text of the log, to show it. Called on the display's thread, so the text has to be posted to a window
/// in a way that is safe between threads.
class ORV_API DisplayListener
{
public:
    virtual ~DisplayListener() = default;

    /// Appends to the text of the listener. Lines end with CR LF.
    virtual void addText(const char* text) = 0;
    /// Replaces the text of the listener.
    virtual void setText(const char* text) = 0;
};
}  // namespace Backend::Display
