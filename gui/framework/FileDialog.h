#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <string>

class QWidget;

namespace Gui
{
/// The choices of a file dialog.
struct FileQuestion {
    enum class Purpose { open, save };

    Purpose purpose = Purpose::open;
    QString title{};
    QStringList filters{};      ///< "Bank Files (*.bnk)"
    QString folder{};           ///< shown at first
    QString extension{};        ///< to save: the extension of the name, without the dot; added if it is missing
    QString name{};             ///< to save: the name offered at first
    bool asksToReplace = true;  ///< to save: whether a file that is there may be replaced only after a question
};

/// Opens a dialog for one file, drawn by the skin, and returns at once. `chosen` gets the path in UTF-8: of a file that
/// is there; or, to save, of a new file or one that may be replaced, with a name that is valid on any system. Not
/// called if the dialog is cancelled. The GUI thread; folders are read on another one.
void showFileDialog(QWidget& parent, const FileQuestion& question, std::function<void(const std::string& path)> chosen);
}  // namespace Gui
