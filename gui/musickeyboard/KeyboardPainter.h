#pragma once

class QPainter;

namespace Gui
{
class GdiManager;
}

namespace Gui::Output
{
class KeyOutlines;

/// `seen`: the note is played, but nothing can sound.
enum class KeyState { up, held, seen, sounding };

/// Draws the keys of the music keyboard and, below them, the names of the octaves.
class KeyboardPainter
{
public:
    static constexpr int LABEL_HEIGHT = 12;  ///< logical pixels

    KeyboardPainter(QPainter& canvas, const GdiManager& manager, const KeyOutlines& keyOutlines)
        : painter(canvas), gdi(manager), keys(keyOutlines)
    {
    }

    void paintKey(int note, KeyState state);
    void paintLabels();

private:
    void paintWhiteFace(int note, KeyState state);
    void paintBlackFace(int note, KeyState state);
    void paintHollow(int note);
    void markMiddleC();

    QPainter& painter;
    const GdiManager& gdi;
    const KeyOutlines& keys;
};
}  // namespace Gui::Output
