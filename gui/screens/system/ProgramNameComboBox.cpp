#include "gui/screens/system/ProgramNameComboBox.h"

#include <QKeyEvent>
#include <QMouseEvent>

namespace Gui::System
{
ProgramNameComboBox::ProgramNameComboBox(GuiContext& context, QWidget* parent)
    : ComboBox(context, Typing::editable, parent)
{
    connect(this, &QLineEdit::editingFinished, this, &ProgramNameComboBox::rename);
}

void ProgramNameComboBox::setProgramNames(const std::vector<std::string>& names)
{
    const bool isTyping = isModified();
    const QString typed = text();
    std::vector<Entry> programs;
    for (const std::string& name : names) {
        const QString shown = QString::fromStdString(name);
        programs.push_back(
            {.text = QStringLiteral("%1: %2").arg(programs.size() + 1).arg(shown), .displayText = shown});
    }
    setEntries(std::move(programs));
    cancelTyping();
    if (!isTyping) return;
    const QSignalBlocker quiet(this);
    setText(typed);
    setModified(true);
}

void ProgramNameComboBox::showProgram(int number, const QString& name)
{
    const bool isTypingOn = isModified() && number == programNumber;
    programNumber = number;
    programName = name;
    if (!isTypingOn) cancelTyping();
}

void ProgramNameComboBox::cancelTyping()
{
    setSelectedIndex(programNumber);
    const QSignalBlocker quiet(this);
    setText(programName);
    home(false);
}

void ProgramNameComboBox::rename()
{
    if (!isModified()) return;
    const QString name = text().trimmed();
    const bool isNew = !name.isEmpty() && name != programName;
    if (isNew) programName = name;
    cancelTyping();
    if (isNew && onRename) onRename(name);
}

void ProgramNameComboBox::keyPressEvent(QKeyEvent* event)
{
    const auto key = event->key();
    if (key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_F4 || key == Qt::Key_Escape) cancelTyping();
    ComboBox::keyPressEvent(event);
    if ((key == Qt::Key_Escape || key == Qt::Key_Return || key == Qt::Key_Enter) && onLeave) onLeave();
}

void ProgramNameComboBox::mousePressEvent(QMouseEvent* event)
{
    const bool opensList = event->position().x() >= width() - textMargins().right();
    if (opensList) cancelTyping();
    ComboBox::mousePressEvent(event);
}

void ProgramNameComboBox::wheelEvent(QWheelEvent* event)
{
    cancelTyping();
    ComboBox::wheelEvent(event);
}
}  // namespace Gui::System
