#include "gui/framework/GdiManager.h"

#include <QPainter>
#include <cmath>
#include <utility>

namespace Gui
{
using WindowsLib::Bitmap;
using WindowsLib::Brush;
using WindowsLib::Colour;
using WindowsLib::Font;

namespace
{
template <std::size_t... ROLE>
std::array<Brush, sizeof...(ROLE)> makeBrushes(const GdiManager::Palette& palette, std::index_sequence<ROLE...>)
{
    return {Brush(palette[ROLE])...};
}

struct FontRow {
    const char* face;
    int height;
    Font::Weight weight = Font::Weight::normal;
};

using enum Font::Weight;
constexpr std::array<FontRow, GdiManager::FONTS> FONT_TABLE{{{"Small Fonts", -7},
                                                             {"Small Fonts", -8, bold},
                                                             {"Small Fonts", -8},
                                                             {"Microsoft Sans Serif", 14},
                                                             {"MS Sans Serif", -8, bold},
                                                             {"Microsoft Sans Serif", -11, bold},
                                                             {"Tahoma", -11, bold},
                                                             {"MS Sans Serif", -14},
                                                             {"Tahoma", -11},
                                                             {"System", -8, bold},
                                                             {"Arial", 12},
                                                             {"Arial", -72, bold},
                                                             {"Arial", -32, bold},
                                                             {"Arial", -24, bold}}};

Colour of(const GdiManager::Palette& palette, GdiManager::Role role) { return palette[static_cast<std::size_t>(role)]; }
}  // namespace

GdiManager::GdiManager(const Palette& palette)
    : brushes(makeBrushes(palette, std::make_index_sequence<ROLES>{})),
      greenPen(2, of(palette, Role::greenPen)),
      greenPen2(1, of(palette, Role::unusedButton)),
      blackPen(2, of(palette, Role::background)),
      redCursor(LIGHT_RED)
{
    makeFonts();
}

void GdiManager::makeFonts()
{
    for (std::size_t i = 0; i < FONTS; ++i)
        fonts[i] = std::make_shared<const Font>(FONT_TABLE[i].face, px(FONT_TABLE[i].height), FONT_TABLE[i].weight);
}

void GdiManager::setPalette(const Palette& palette)
{
    brushes = makeBrushes(palette, std::make_index_sequence<ROLES>{});
    greenPen = WindowsLib::Pen(2, of(palette, Role::greenPen));
    greenPen2 = WindowsLib::Pen(1, of(palette, Role::unusedButton));
    blackPen = WindowsLib::Pen(2, of(palette, Role::background));
}

void GdiManager::setScale(double factor)
{
    if (factor == scale) return;
    scale = factor;
    makeFonts();
}

int GdiManager::px(double length) const { return static_cast<int>(std::lround(length * scale)); }

QRect GdiManager::px(const QRect& rectangle) const
{
    const int left = px(rectangle.left());
    const int top = px(rectangle.top());
    return {left, top, px(rectangle.left() + rectangle.width()) - left, px(rectangle.top() + rectangle.height()) - top};
}

const Bitmap& GdiManager::getKnob(Colour foreground, Colour background, Edge edge, int size, double ratio)
{
    const KnobKey key{foreground, background, size, edge, ratio};
    auto knob = knobs.find(key);
    if (knob == knobs.end()) knob = knobs.emplace(key, createKnob(foreground, background, edge, size, ratio)).first;
    return knob->second;
}

QPixmap GdiManager::createKnob(Colour foreground, Colour background, Edge edge, int size, double ratio)
{
    QPixmap pixmap(QSize(size + 1, size + 1) * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(WindowsLib::toQColor(background));
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(WindowsLib::toQColor(foreground));
    // Without the smooth edge a pixel's place is its corner, not its middle.
    const qreal shift = edge == Edge::smooth ? 0 : 0.5 / ratio;
    painter.drawEllipse(QRectF(shift, shift, size - 2 * shift, size - 2 * shift));
    return pixmap;
}
}  // namespace Gui
