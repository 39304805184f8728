#include "backend/display/DisplayText.h"

#include <utility>

namespace Backend::Display
{
void DisplayText::append(std::string_view piece)
{
    if (piece.size() >= TOO_LONG) return;
    if (text.size() + piece.size() >= CAPACITY) {
        text.erase(0, text.size() / 2);
        sentLength = text.size();
    }
    text += piece;
}

const char* DisplayText::takeUnsent() { return text.c_str() + std::exchange(sentLength, text.size()); }

const char* DisplayText::takeAll()
{
    sentLength = text.size();
    return text.c_str();
}
}  // namespace Backend::Display
