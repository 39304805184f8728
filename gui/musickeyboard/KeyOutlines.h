#pragma once

#include <QPainterPath>
#include <QPoint>

/// Where the 128 keys of the music keyboard stand: the table by which it is drawn and played, and after which the
/// layers and zones below it are placed. Logical pixels, the origin at the top left corner of a control as wide as a
/// screen. A note outside 0 to 127 counts as the nearer of the two.
namespace Gui::Output::KeyOutlines
{
inline constexpr int NOTES = 128;
inline constexpr int WIDTH = 760;        ///< of all of it, with 5 pixels free at both ends
inline constexpr int WHITE_HEIGHT = 60;  ///< the keys begin at the top
inline constexpr int BLACK_HEIGHT = 37;

bool isBlack(int note);

/// The edges of the whole key; the right one is the first pixel behind it. Both rise from note to note.
int leftEdge(int note);
int rightEdge(int note);

/// The key as a region: a white one leaves out what belongs to the black ones beside it. Outlines do not overlap.
const QPainterPath& keyOutline(int note);
QRect keyRectangle(int note);

/// The key that is hit, or -1.
int noteAt(const QPoint& point);
}  // namespace Gui::Output::KeyOutlines
