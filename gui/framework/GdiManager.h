#pragma once

#include <QRect>
#include <QSize>
#include <array>
#include <compare>
#include <cstddef>
#include <map>
#include <memory>

#include "gui/framework/Bitmap.h"
#include "gui/framework/Brush.h"
#include "gui/framework/Colour.h"
#include "gui/framework/Cursor.h"
#include "gui/framework/Font.h"
#include "gui/framework/Pen.h"
#include "platform/Export.h"

namespace Gui
{
/// Every brush, pen and font of the window, made once and returned by role: the look is one table of colours and one of
/// fonts, and a scale for all lengths. What it returns lives until the skin or the scale is changed. The GUI thread,
/// once there is an application.
class ORV_API GdiManager
{
public:
    static constexpr WindowsLib::Colour BLACK = WindowsLib::rgb(0, 0, 0);
    static constexpr WindowsLib::Colour WHITE = WindowsLib::rgb(255, 255, 255);
    static constexpr WindowsLib::Colour LIGHT_GREY = WindowsLib::rgb(192, 192, 192);
    static constexpr WindowsLib::Colour DARK_GREY = WindowsLib::rgb(100, 100, 100);
    static constexpr WindowsLib::Colour DARK_DARK_GREY = WindowsLib::rgb(70, 70, 70);
    static constexpr WindowsLib::Colour LIGHT_LIGHT_GREEN = WindowsLib::rgb(0, 255, 0);
    static constexpr WindowsLib::Colour LIGHT_GREEN = WindowsLib::rgb(0, 235, 0);
    static constexpr WindowsLib::Colour GREEN = WindowsLib::rgb(0, 210, 0);
    static constexpr WindowsLib::Colour DARK_GREEN = WindowsLib::rgb(0, 160, 0);
    static constexpr WindowsLib::Colour DARK_DARK_GREEN = WindowsLib::rgb(0, 100, 0);
    static constexpr WindowsLib::Colour DARK_DARK_DARK_GREEN = WindowsLib::rgb(0, 50, 0);
    static constexpr WindowsLib::Colour LIGHT_RED = WindowsLib::rgb(255, 5, 5);
    static constexpr WindowsLib::Colour DARK_RED = WindowsLib::rgb(128, 0, 0);
    static constexpr WindowsLib::Colour AMBER = WindowsLib::rgb(188, 188, 60);

    enum class Role : std::size_t {
        background,
        panelBorder,
        selectedButton,
        selectedButton1,
        selectedButton2,
        unselectedButton,
        unusedButton,
        unusedSelectedButton,
        disabledButton,
        controlBorder,
        controlBorderDisabled,
        frame,
        text,
        labelDisabled,
        greenPen,  ///< of a pen alone
        selectedCell,
        label
    };
    static constexpr std::size_t ROLES = 17;
    using Palette = std::array<WindowsLib::Colour, ROLES>;  ///< by role

    /// The product's palette: green and amber on black.
    static constexpr Palette PALETTE{
        BLACK,     DARK_GREEN, LIGHT_LIGHT_GREEN, LIGHT_GREEN, GREEN, DARK_GREEN, DARK_DARK_GREEN,      DARK_RED,
        DARK_GREY, DARK_GREEN, DARK_GREY,         LIGHT_RED,   AMBER, LIGHT_GREY, DARK_DARK_DARK_GREEN, DARK_DARK_GREY,
        GREEN};

    /// White, yellow and grey on black.
    static constexpr Palette HIGH_CONTRAST{BLACK,
                                           WHITE,
                                           WindowsLib::rgb(255, 255, 0),
                                           WindowsLib::rgb(255, 255, 0),
                                           WindowsLib::rgb(255, 255, 0),
                                           WindowsLib::rgb(200, 200, 200),
                                           WindowsLib::rgb(90, 90, 90),
                                           DARK_RED,
                                           WindowsLib::rgb(150, 150, 150),
                                           WHITE,
                                           WindowsLib::rgb(150, 150, 150),
                                           WindowsLib::rgb(255, 80, 80),
                                           WindowsLib::rgb(255, 255, 0),
                                           WindowsLib::rgb(190, 190, 190),
                                           WindowsLib::rgb(50, 50, 50),
                                           WindowsLib::rgb(0, 0, 160),
                                           WHITE};

    /// Green and brown on white; what is on is orange.
    static constexpr Palette LIGHT{WHITE,
                                   WindowsLib::rgb(0, 110, 0),
                                   WindowsLib::rgb(184, 92, 0),
                                   WindowsLib::rgb(184, 92, 0),
                                   WindowsLib::rgb(184, 92, 0),
                                   WindowsLib::rgb(0, 136, 0),
                                   WindowsLib::rgb(200, 225, 200),
                                   WindowsLib::rgb(240, 150, 150),
                                   WindowsLib::rgb(130, 130, 130),
                                   WindowsLib::rgb(0, 110, 0),
                                   WindowsLib::rgb(140, 140, 140),
                                   WindowsLib::rgb(225, 45, 20),
                                   WindowsLib::rgb(90, 60, 0),
                                   WindowsLib::rgb(110, 110, 110),
                                   WindowsLib::rgb(225, 235, 225),
                                   WindowsLib::rgb(205, 225, 250),
                                   WindowsLib::rgb(0, 80, 0)};

    /// The roles of fonts: `font1` to `font9`, and those for special sizes.
    enum class FontRole : std::size_t {
        font1,
        font2,
        font3,
        font4,
        font5,
        font6,
        font7,
        font8,
        font9,
        big,
        small,
        large,
        stageName,  ///< of the program
        stageTempo
    };
    static constexpr std::size_t FONTS = 14;
    /// The heights of the fonts by role, in logical pixels: below 0 of the letters, above 0 of the line.
    using FontSizes = std::array<int, FONTS>;
    static constexpr FontSizes SIZES{-7, -8, -8, 14, -8, -11, -11, -14, -11, -8, 12, -72, -32, -24};
    /// Where there is room, larger.
    static constexpr FontSizes LARGER_SIZES{-8, -9, -9, 15, -9, -12, -12, -15, -12, -9, 13, -72, -36, -26};

    struct Skin {
        const char* name;
        const Palette& palette;
        const FontSizes& sizes;
    };
    static constexpr std::array<Skin, 3> SKINS{
        {{"Classic", PALETTE, SIZES}, {"High contrast", HIGH_CONTRAST, LARGER_SIZES}, {"Light", LIGHT, SIZES}}};

    explicit GdiManager(const Skin& skin = SKINS[0]);

    /// Another skin or scale, 1 for 100 percent. The windows have to be skinned and laid out again.
    void setSkin(const Skin& skin);
    void setScale(double factor);

    double getScale() const { return scale; }
    /// A length of 100 percent in pixels of this scale, rounded; of a rectangle each edge.
    int px(double length) const;
    QSize px(const QSize& size) const { return {px(size.width()), px(size.height())}; }
    QRect px(const QRect& rectangle) const;

    /// A copy makes no new font.
    GdiManager(const GdiManager&) = default;
    GdiManager& operator=(const GdiManager&) = default;

    const WindowsLib::Brush& getBrush(Role role) const { return brushes[static_cast<std::size_t>(role)]; }
    const QColor& getColour(Role role) const { return getBrush(role).getQColor(); }

    const WindowsLib::Pen& getGreenPen() const { return greenPen; }
    const WindowsLib::Pen& getGreenPen2() const { return greenPen2; }
    const WindowsLib::Pen& getBlackPen() const { return blackPen; }
    const WindowsLib::Cursor& getRedCursor() const { return redCursor; }

    const QFont& getFont(FontRole role) const { return fonts[static_cast<std::size_t>(role)]->getHandle(); }

    enum class Edge { plain, smooth };

    /// A filled disc in a square of `size` + 1 logical pixels, whose last row and column are background. Drawn once for
    /// each set of arguments, as sharp as `ratio` device pixels for a logical one.
    const WindowsLib::Bitmap& getKnob(WindowsLib::Colour foreground, WindowsLib::Colour background, Edge edge, int size,
                                      double ratio = 1);
    static QPixmap createKnob(WindowsLib::Colour foreground, WindowsLib::Colour background, Edge edge, int size,
                              double ratio = 1);

private:
    struct KnobKey {
        WindowsLib::Colour foreground;
        WindowsLib::Colour background;
        int size;
        Edge edge;
        double ratio;

        auto operator<=>(const KnobKey&) const = default;
    };

    void makeFonts();

    double scale = 1;
    const FontSizes* sizes;
    std::array<WindowsLib::Brush, ROLES> brushes;
    WindowsLib::Pen greenPen;
    WindowsLib::Pen greenPen2;
    WindowsLib::Pen blackPen;
    WindowsLib::Cursor redCursor;
    std::array<std::shared_ptr<const WindowsLib::Font>, FONTS> fonts;
    std::map<KnobKey, WindowsLib::Bitmap> knobs;
};
}  // namespace Gui
