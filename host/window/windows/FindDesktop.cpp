#include "host/window/FindDesktop.h"

#include <QtGlobal>

namespace Host
{
/// Texts are drawn by FreeType, so they have the same width as elsewhere, and the places that are made for it.
Desktop findDesktop()
{
    const QByteArray wanted = qgetenv("QT_QPA_PLATFORM");
    return {wanted.isEmpty() ? "windows:fontengine=freetype" : wanted.toStdString(), {}};
}
}  // namespace Host
