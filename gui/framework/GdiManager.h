#pragma once

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
/// fonts. What it returns lives as long as it does. The GUI thread, once there is an application.
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

    explicit GdiManager(const Palette& palette = PALETTE);

    /// A copy makes no new font.
    GdiManager(const GdiManager&) = default;
    GdiManager& operator=(const GdiManager&) = default;

    const WindowsLib::Brush& getBrush(Role role) const { return brushes[static_cast<std::size_t>(role)]; }
    const QColor& getColour(Role role) const { return getBrush(role).getQColor(); }

    const WindowsLib::Pen& getGreenPen() const { return greenPen; }
    const WindowsLib::Pen& getGreenPen2() const { return greenPen2; }
    const WindowsLib::Pen& getBlackPen() const { return blackPen; }
    const WindowsLib::Cursor& getRedCursor() const { return redCursor; }

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
        large
    };
    static constexpr std::size_t FONTS = 12;
    const QFont& getFont(FontRole role) const { return fonts[static_cast<std::size_t>(role)]->getHandle(); }

    enum class Edge { plain, smooth };

    /// A filled disc in a square of `size` + 1 logical pixels, whose last row and column are background. Drawn once for
    /// each set of arguments, as sharp as `scale` device pixels for a logical one.
    const WindowsLib::Bitmap& getKnob(WindowsLib::Colour foreground, WindowsLib::Colour background, Edge edge, int size,
                                      double scale = 1);
    static QPixmap createKnob(WindowsLib::Colour foreground, WindowsLib::Colour background, Edge edge, int size,
                              double scale = 1);

private:
    struct KnobKey {
        WindowsLib::Colour foreground;
        WindowsLib::Colour background;
        int size;
        Edge edge;
        double scale;

        auto operator<=>(const KnobKey&) const = default;
    };

    std::array<WindowsLib::Brush, ROLES> brushes;
    WindowsLib::Pen greenPen;
    WindowsLib::Pen greenPen2;
    WindowsLib::Pen blackPen;
    WindowsLib::Cursor redCursor;
    std::array<std::shared_ptr<const WindowsLib::Font>, FONTS> fonts;
    std::map<KnobKey, WindowsLib::Bitmap> knobs;
};
}  // namespace Gui
