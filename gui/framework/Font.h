#pragma once

#include <QFont>

namespace WindowsLib
{
/// A font by face, height and weight. A height below 0 is that of the characters, above 0 that of a whole line, in
/// logical pixels. Where the system lacks the face it takes one of the same kind.
class Font
{
public:
    enum class Weight { normal, bold };

    Font(const char* face, int height, Weight weight);

    const QFont& getHandle() const { return handle; }

private:
    QFont handle;
};
}  // namespace WindowsLib
