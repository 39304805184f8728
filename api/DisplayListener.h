#pragma once

#include "platform/Export.h"

namespace Backend::Display
{
/// Who shows the log of events. Called on the display's thread: what it gets must be handed to a window by a way that
/// crosses threads.
class ORV_API DisplayListener
{
public:
    virtual ~DisplayListener() = default;

    /// Text that follows what the listener has. Ends of lines are CR LF.
    virtual void addText(const char* text) = 0;
    /// The whole text, in place of what the listener has.
    virtual void setText(const char* text) = 0;
};
}  // namespace Backend::Display
