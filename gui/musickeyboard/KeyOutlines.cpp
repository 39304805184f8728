#include "gui/musickeyboard/KeyOutlines.h"

#include <QPolygonF>
#include <algorithm>
#include <cmath>

namespace Gui::Output
{
namespace
{
constexpr double WIDTH = 960;
constexpr double LEFT = 5;
constexpr int WHITES = 75;
constexpr double WHITE_WIDTH = (WIDTH - 2 * LEFT) / WHITES;
constexpr double BLACK_WIDTH = 0.6 * WHITE_WIDTH;
constexpr double WHITE_HEIGHT = 74;
constexpr double BLACK_HEIGHT = 46;
constexpr int SEMITONES = 12;
constexpr int WHITES_IN_OCTAVE = 7;

/// The number of white keys of the octave before a key, and how far a black key extends over the last of them, in
/// tenths of its width: as on a piano it is not centred between them.
struct PitchClass {
    int whitesBefore;
    int overlap;  // 0 for a white key
};
constexpr std::array<PitchClass, SEMITONES> PITCH_CLASSES{
    {{0, 0}, {1, 4}, {1, 0}, {2, 2}, {2, 0}, {3, 0}, {4, 4}, {4, 0}, {5, 3}, {5, 0}, {6, 2}, {6, 0}}};

constexpr int inRange(int note) { return std::clamp(note, 0, KeyOutlines::NOTES - 1); }
constexpr PitchClass pitchClassOf(int note) { return PITCH_CLASSES[static_cast<std::size_t>(note % SEMITONES)]; }

/// Pixels of 100 percent.
double leftOf(int note)
{
    const PitchClass place = pitchClassOf(note);
    return LEFT + WHITE_WIDTH * (note / SEMITONES * WHITES_IN_OCTAVE + place.whitesBefore - place.overlap / 10.0);
}
}  // namespace

KeyOutlines::KeyOutlines(double scale)
    : width(static_cast<int>(std::lround(WIDTH * scale))),
      whiteHeight(static_cast<int>(std::lround(WHITE_HEIGHT * scale))),
      blackHeight(static_cast<int>(std::lround(BLACK_HEIGHT * scale)))
{
    for (int note = 0; note < NOTES; ++note) {
        const double left = leftOf(note);
        Key& key = keys[static_cast<std::size_t>(note)];
        key.left = static_cast<int>(std::lround(left * scale));
        key.right = static_cast<int>(std::lround((left + (isBlack(note) ? BLACK_WIDTH : WHITE_WIDTH)) * scale));
    }
    for (int note = 0; note < NOTES; ++note) keys[static_cast<std::size_t>(note)].outline = makeOutline(note);
}

const KeyOutlines::Key& KeyOutlines::at(int note) const { return keys[static_cast<std::size_t>(inRange(note))]; }

/// The part of a white key between the black keys on its two sides.
QRect KeyOutlines::backOf(int note) const
{
    const auto isBlackNeighbour = [](int other) { return other == inRange(other) && isBlack(other); };
    const int left = isBlackNeighbour(note - 1) ? rightEdge(note - 1) : leftEdge(note);
    const int right = isBlackNeighbour(note + 1) ? leftEdge(note + 1) : rightEdge(note);
    return {left, 0, right - left, blackHeight};
}

QPainterPath KeyOutlines::makeOutline(int note) const
{
    const QRectF whole = keyRectangle(note);
    QPolygonF corners;
    if (isBlack(note)) {
        corners << whole.topLeft() << whole.topRight() << whole.bottomRight() << whole.bottomLeft();
    } else {
        const QRectF back = backOf(note);
        corners << back.topLeft() << back.topRight() << back.bottomRight() << QPointF(whole.right(), blackHeight)
                << whole.bottomRight() << whole.bottomLeft() << QPointF(whole.left(), blackHeight) << back.bottomLeft();
    }
    QPainterPath path;
    path.addPolygon(corners);
    path.closeSubpath();
    return path;
}

bool KeyOutlines::isBlack(int note) { return pitchClassOf(inRange(note)).overlap > 0; }

int KeyOutlines::leftEdge(int note) const { return at(note).left; }

int KeyOutlines::rightEdge(int note) const { return at(note).right; }

QRect KeyOutlines::keyRectangle(int note) const
{
    return {leftEdge(note), 0, rightEdge(note) - leftEdge(note), isBlack(note) ? blackHeight : whiteHeight};
}

const QPainterPath& KeyOutlines::keyOutline(int note) const { return at(note).outline; }

/// A black key lies above the white ones.
int KeyOutlines::noteAt(const QPoint& point) const
{
    int hit = -1;
    for (int note = 0; note < NOTES; ++note)
        if ((hit < 0 || isBlack(note)) && keyRectangle(note).contains(point)) hit = note;
    return hit;
}
}  // namespace Gui::Output
