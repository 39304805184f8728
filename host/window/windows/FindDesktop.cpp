#include "host/window/FindDesktop.h"

#include <QtGlobal>

namespace Host
{
Desktop findDesktop()
{
    const QByteArray wanted = qgetenv("QT_QPA_PLATFORM");
    return {wanted.isEmpty() ? "windows" : wanted.toStdString(), {}};
}
}  // namespace Host
