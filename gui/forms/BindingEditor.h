#pragma once

#include <QWidget>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "gui/forms/BindingPicker.h"
#include "gui/forms/BindingRecords.h"

class QHBoxLayout;
class QLabel;
class QListWidget;
class QPushButton;

namespace Gui
{
class ComboBox;
class GuiContext;
}  // namespace Gui

namespace Gui::Forms
{
class RecordEditor;
class RecordForm;

/// What the selected keys, buttons or MIDI events execute: their entries in order with the settings of the records
/// beneath, the picker, and the settings of the current row, while the settings of the section are open. A change goes
/// to all selected records and is one step of undo. The GUI thread.
class BindingEditor final : public QWidget
{
public:
    using Of = BindingPicker::Of;

    /// All must outlive it. The records are those of the editor.
    BindingEditor(GuiContext& owner, RecordEditor& shownEditor, BindingRecords& shownRecords, Of kind,
                  QWidget* parent = nullptr);
    /// For entries of one type: `picture`, which it owns, has the place of the picker.
    BindingEditor(GuiContext& owner, RecordEditor& shownEditor, BindingRecords& shownRecords, QWidget* picture,
                  QWidget* parent = nullptr);

    /// Called when the current row, or what it does, may be another one.
    std::function<void(Backend::RecordId first, int row)> onShown;

private:
    void makeEntries(QHBoxLayout& line);
    void makeSettings(QHBoxLayout& line, GuiContext& owner);
    QPushButton& makeButton(QHBoxLayout& line, const QString& text, const QString& help,
                            const std::function<void()>& click);
    void showSelected();
    void showRows();
    void showRow();
    void chooseRow(int newRow);

    int countRows() const;
    int getEntry() const { return row / records.getRowsPerEntry(); }
    bool hasNotes() const;
    std::string getType() const;
    QString describeRow(int ofRow) const;

    void choose(const std::string& typeName);
    void raiseNotes(const std::vector<Backend::RecordId>& ids);
    void change(const QString& value, const std::function<void(Backend::RecordId id)>& set);
    void moveEntry(int by);

    RecordEditor& editor;
    BindingRecords& records;
    std::vector<Backend::RecordId> shown;
    int row = 0;
    std::uint64_t rowVersion = 0;  // of the settings: another row is shown since

    QListWidget* rows = nullptr;  // these are owned by their Qt parents
    QPushButton* addButton = nullptr;
    QPushButton* removeButton = nullptr;
    QPushButton* earlierButton = nullptr;
    QPushButton* laterButton = nullptr;
    BindingPicker* picker = nullptr;  // null where there is a picture
    QWidget* notesLine = nullptr;
    ComboBox* notes = nullptr;
    RecordForm* common = nullptr;
    RecordForm* settings = nullptr;
};
}  // namespace Gui::Forms
