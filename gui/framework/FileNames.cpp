#include "gui/framework/FileNames.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QRegularExpression>

#include "backend/files/FileName.h"

namespace Gui
{
namespace
{
QString tr(const char* text) { return QCoreApplication::translate("FileNames", text); }

const QRegularExpression& forbidden()
{
    static const QRegularExpression CHARACTERS(QStringLiteral(R"([\\/:*?"<>|])"));
    return CHARACTERS;
}
}  // namespace

QString refuseFileName(const QString& name)
{
    if (name.contains(forbidden()))
        return tr(R"(Name cannot contain any of the following characters: \ / : * ? " < > |)");
    return Backend::isValidFileName(name.toStdString()) ? QString() : tr("Name cannot be the name of a file");
}

QString asFileName(const QString& name, const QString& otherwise)
{
    const QString cleaned = QString(name).remove(forbidden()).trimmed();
    return Backend::isValidFileName(cleaned.toStdString()) ? cleaned : otherwise;
}

QString shownFileName(const std::string& path) { return QFileInfo(QString::fromStdString(path)).fileName(); }
}  // namespace Gui
