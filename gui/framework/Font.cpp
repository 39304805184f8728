#include "gui/framework/Font.h"

#include <QFontMetrics>
#include <QStringList>

namespace WindowsLib
{
namespace
{
QFont sized(const QFont& font, int pixels)
{
    QFont result(font);
    result.setPixelSize(pixels);
    return result;
}

/// The largest size whose whole line is no higher than `height`.
QFont fitted(const QFont& font, int height)
{
    int pixels = height;
    while (pixels > 1 && QFontMetrics(sized(font, pixels)).height() > height) --pixels;
    return sized(font, pixels);
}

void insertSubstitutions()
{
    for (const char* face : {"Small Fonts", "Microsoft Sans Serif", "MS Sans Serif", "Tahoma", "System", "Arial"})
        QFont::insertSubstitutions(QString::fromLatin1(face), QStringList{"Arial", "Liberation Sans", "DejaVu Sans"});
}
}  // namespace

Font::Font(const char* face, int height, Weight weight)
{
    static const bool substituted = (insertSubstitutions(), true);
    static_cast<void>(substituted);
    QFont font{QString::fromLatin1(face)};
    font.setStyleHint(QFont::SansSerif);
    font.setBold(weight == Weight::bold);
    handle = height < 0 ? sized(font, -height) : fitted(font, height);
}
}  // namespace WindowsLib
