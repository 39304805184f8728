#include "gui/screens/system/RecordFile.h"

#include <QDateTime>
#include <QDir>
#include <QStandardPaths>

namespace Gui::System::RecordFile
{
namespace
{
std::string describe(const Backend::RetroRecord::SavedRecord& saved)
{
    if (saved.error)
        return "The record could not be saved" + (saved.file.empty() ? "" : " as " + saved.file) + ": " +
               saved.error.message() + ".\n";
    return saved.file.empty() ? "" : "The record was saved as " + saved.file + ".\n";
}

QDir folder()
{
    const QString music = QStandardPaths::writableLocation(QStandardPaths::MusicLocation);
    return !music.isEmpty() && QDir().mkpath(music) ? QDir(music) : QDir::home();
}
}  // namespace

std::string stem()
{
    const QString now = QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd HH.mm.ss"));
    return QDir::toNativeSeparators(folder().filePath(QStringLiteral("record ") + now)).toStdString();
}

std::string describe(const Backend::RetroRecord::SaveReport& report)
{
    std::string text;
    for (const auto& saved : report) text += describe(saved);
    if (text.empty()) return "Nothing was recorded since the record was last saved.";
    text.pop_back();
    return text;
}
}  // namespace Gui::System::RecordFile
