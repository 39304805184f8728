#include "gui/framework/FileDialog.h"

#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QSplitter>
#include <QStandardPaths>
#include <QUrl>
#include <utility>

#include "gui/framework/FileNames.h"
#include "gui/framework/Question.h"

namespace Gui
{
namespace
{
using Purpose = FileQuestion::Purpose;

constexpr QSize SIZE(680, 440);
constexpr int SIDEBAR = 130;

/// The folders in the side bar: the one shown at first and the user's home folder.
QList<QUrl> shortcutsFrom(const QString& folder)
{
    QList<QUrl> places;
    for (const QString& place :
         {folder, QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation), QDir::homePath()})
        if (const QUrl url = QUrl::fromLocalFile(place); QFileInfo(place).isDir() && !places.contains(url))
            places.append(url);
    return places;
}

/// Has its own message boxes, because those of Qt block until they are closed.
class FileDialog final : public QFileDialog
{
public:
    FileDialog(QWidget& parent, const FileQuestion& question, std::function<void(const std::string& path)> onChosen)
        : QFileDialog(&parent, question.title, question.folder),
          purpose(question.purpose),
          extension(question.extension),
          asksToReplace(question.asksToReplace),
          chosen(std::move(onChosen))
    {
        setOption(DontUseNativeDialog);
        setOption(DontConfirmOverwrite);
        setFileMode(purpose == Purpose::open ? ExistingFile : AnyFile);
        setAcceptMode(purpose == Purpose::open ? AcceptOpen : AcceptSave);
        setNameFilters(question.filters);
        if (!question.name.isEmpty()) selectFile(question.name);
        setSidebarUrls(shortcutsFrom(question.folder));
        for (auto* const list : findChildren<QComboBox*>())  // where Qt names none of them
            if (list->accessibleName().isEmpty())
                list->setAccessibleName(list->objectName() == QStringLiteral("lookInCombo") ? tr("Folder")
                                                                                            : tr("Kind of file"));
        if (auto* splitter = findChild<QSplitter*>()) splitter->setSizes({SIDEBAR, SIZE.width() - SIDEBAR});
        resize(SIZE);
        setAttribute(Qt::WA_DeleteOnClose);
    }

    void accept() override
    {
        const auto* line = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        const QStringList files = selectedFiles();
        if (files.isEmpty() || (line != nullptr && line->text().trimmed().isEmpty())) return;
        if (QFileInfo(files.first()).isDir()) return QFileDialog::accept();  // goes into it
        purpose == Purpose::open ? open(files.first()) : save(withExtension(files.first()));
    }

private:
    using QFileDialog::open;

    void open(const QString& file)
    {
        if (QFileInfo(file).isFile()) return take(file);
        showMessage(*this, tr("Error"), tr("There is no file \"%1\".").arg(QFileInfo(file).fileName()));
    }

    void save(const QString& file)
    {
        const QFileInfo info(file);
        const QString reason = info.isDir() ? tr("\"%1\" is a folder.").arg(info.fileName())
                               : !QFileInfo(info.absolutePath()).isDir()
                                   ? tr("There is no folder \"%1\".").arg(QDir::toNativeSeparators(info.path()))
                                   : refuseFileName(info.fileName());
        if (!reason.isEmpty()) return showMessage(*this, tr("Error"), reason);
        if (!info.exists() || !asksToReplace) return take(file);
        ask(*this, tr("Confirm Overwrite"), tr("\"%1\" already exists. Overwrite?").arg(info.fileName()),
            [this, file] { take(file); });
    }

    QString withExtension(QString file) const
    {
        const QString end = "." + extension;
        if (file.endsWith(end, Qt::CaseInsensitive)) file.chop(end.size());
        return file + end;
    }

    void take(const QString& file)
    {
        QDialog::accept();
        chosen(QDir::toNativeSeparators(file).toStdString());
    }

    const Purpose purpose;
    const QString extension;
    const bool asksToReplace;
    const std::function<void(const std::string& path)> chosen;
};
}  // namespace

void showFileDialog(QWidget& parent, const FileQuestion& question, std::function<void(const std::string& path)> chosen)
{
    auto* dialog = new FileDialog(parent, question, std::move(chosen));
    static_cast<QDialog*>(dialog)->open();
}
}  // namespace Gui
