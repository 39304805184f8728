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
    Font::Weight weight = Font::Weight::normal;
};

using enum Font::Weight;
constexpr std::array<FontRow, GdiManager::FONTS> FONT_TABLE{{{"Small Fonts"},
                                                             {"Small Fonts", bold},
                                                             {"Small Fonts"},
                                                             {"Microsoft Sans Serif"},
                                                             {"MS Sans Serif", bold},
                                                             {"Microsoft Sans Serif", bold},
                                                             {"Tahoma", bold},
                                                             {"MS Sans Serif"},
                                                             {"Tahoma"},
                                                             {"System", bold},
                                                             {"Arial"},
                                                             {"Arial", bold},
                                                             {"Arial", bold},
                                                             {"Arial", bold}}};

Colour of(const GdiManager::Palette& palette, GdiManager::Role role) { return palette[static_cast<std::size_t>(role)]; }
}  // namespace

GdiManager::GdiManager(const Skin& skin)
    : sizes(&skin.sizes),
      brushes(makeBrushes(skin.palette, std::make_index_sequence<ROLES>{})),
      greenPen(2, of(skin.palette, Role::greenPen)),
      greenPen2(1, of(skin.palette, Role::unusedButton)),
      blackPen(2, of(skin.palette, Role::background)),
      redCursor(LIGHT_RED)
{
    makeFonts();
}

void GdiManager::makeFonts()
{
    for (std::size_t i = 0; i < FONTS; ++i)
        fonts[i] = std::make_shared<const Font>(FONT_TABLE[i].face, px((*sizes)[i]), FONT_TABLE[i].weight);
}

void GdiManager::setSkin(const Skin& skin)
{
    brushes = makeBrushes(skin.palette, std::make_index_sequence<ROLES>{});
    greenPen = WindowsLib::Pen(2, of(skin.palette, Role::greenPen));
    greenPen2 = WindowsLib::Pen(1, of(skin.palette, Role::unusedButton));
    blackPen = WindowsLib::Pen(2, of(skin.palette, Role::background));
    sizes = &skin.sizes;
    makeFonts();
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
