#include "gui/musickeyboard/KeyOutlines.h"

#include <QPolygonF>
#include <algorithm>
#include <array>

namespace Gui::Output::KeyOutlines
{
namespace
{
constexpr int LEFT = 5;
constexpr int WHITE_WIDTH = 10;
constexpr int BLACK_WIDTH = 6;
constexpr int OCTAVE = 12;
constexpr int WHITES_IN_OCTAVE = 7;
constexpr int HIGHEST = NOTES - 1;

/// The number of white keys of the octave before a key, and how far a black key extends over the last of them: as on a
/// piano it is not centred between them.
struct PitchClass {
    int whitesBefore;
    int overlap;  // 0 for a white key
};
constexpr std::array<PitchClass, OCTAVE> PITCH_CLASSES{
    {{0, 0}, {1, 4}, {1, 0}, {2, 2}, {2, 0}, {3, 0}, {4, 4}, {4, 0}, {5, 3}, {5, 0}, {6, 2}, {6, 0}}};

constexpr int inRange(int note) { return std::clamp(note, 0, HIGHEST); }
constexpr PitchClass pitchClassOf(int note) { return PITCH_CLASSES[static_cast<std::size_t>(note % OCTAVE)]; }
bool isBlackNeighbour(int note) { return note >= 0 && note <= HIGHEST && isBlack(note); }

/// The part of a white key between the black keys on its two sides.
QRect backOf(int note)
{
    const int left = isBlackNeighbour(note - 1) ? rightEdge(note - 1) : leftEdge(note);
    const int right = isBlackNeighbour(note + 1) ? leftEdge(note + 1) : rightEdge(note);
    return {left, 0, right - left, BLACK_HEIGHT};
}

QPainterPath makeOutline(int note)
{
    const QRectF whole = keyRectangle(note);
    QPolygonF corners;
    if (isBlack(note)) {
        corners << whole.topLeft() << whole.topRight() << whole.bottomRight() << whole.bottomLeft();
    } else {
        const QRectF back = backOf(note);
        corners << back.topLeft() << back.topRight() << back.bottomRight() << QPointF(whole.right(), BLACK_HEIGHT)
                << whole.bottomRight() << whole.bottomLeft() << QPointF(whole.left(), BLACK_HEIGHT)
                << back.bottomLeft();
    }
    QPainterPath path;
    path.addPolygon(corners);
    path.closeSubpath();
    return path;
}

std::array<QPainterPath, NOTES> makeOutlines()
{
    std::array<QPainterPath, NOTES> outlines;
    for (int note = 0; note < NOTES; ++note) outlines[static_cast<std::size_t>(note)] = makeOutline(note);
    return outlines;
}
}  // namespace

bool isBlack(int note) { return pitchClassOf(inRange(note)).overlap > 0; }

int leftEdge(int note)
{
    const int key = inRange(note);
    const PitchClass place = pitchClassOf(key);
    return LEFT + WHITE_WIDTH * (key / OCTAVE * WHITES_IN_OCTAVE + place.whitesBefore) - place.overlap;
}

int rightEdge(int note) { return leftEdge(note) + (isBlack(note) ? BLACK_WIDTH : WHITE_WIDTH); }

QRect keyRectangle(int note)
{
    return {leftEdge(note), 0, rightEdge(note) - leftEdge(note), isBlack(note) ? BLACK_HEIGHT : WHITE_HEIGHT};
}

const QPainterPath& keyOutline(int note)
{
    static const std::array<QPainterPath, NOTES> OUTLINES = makeOutlines();
    return OUTLINES[static_cast<std::size_t>(inRange(note))];
}

/// A black key lies above the white ones.
int noteAt(const QPoint& point)
{
    int hit = -1;
    for (int note = 0; note < NOTES; ++note)
        if ((hit < 0 || isBlack(note)) && keyRectangle(note).contains(point)) hit = note;
    return hit;
}
}  // namespace Gui::Output::KeyOutlines
