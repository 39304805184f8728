#pragma once

class QPainter;

namespace Gui
{
class GdiManager;
}

namespace Gui::Output
{
enum class KeyState { up, held, sounding };

/// Draws the keys of the music keyboard and, below them, the names of the octaves.
class KeyboardPainter
{
public:
    static constexpr int LABEL_HEIGHT = 11;

    KeyboardPainter(QPainter& canvas, const GdiManager& manager) : painter(canvas), gdi(manager) {}

    void paintKey(int note, KeyState state);
    void paintLabels();

private:
    void paintWhiteFace(int note, KeyState state);
    void paintBlackFace(int note, KeyState state);
    void markMiddleC();

    QPainter& painter;
    const GdiManager& gdi;
};
}  // namespace Gui::Output
