#pragma once

#include <QWidget>
#include <cstdint>
#include <functional>
#include <vector>

#include "backend/model/Edit.h"

namespace Gui
{
class GuiContext;
}

namespace Gui::Forms
{
struct FormField;
class RecordEditor;
class SettingsForm;

/// A part of each record that has fields of its own.
struct RecordPart {
    /// The fields of the selected records, the same ones in the same order, or none.
    std::function<std::vector<FormField>(Backend::RecordId id)> fieldsOf{};
    /// Another number when the fields of before are no longer valid.
    std::function<std::uint64_t()> getVersion{};
    /// Called within the edit after a field of these records was set.
    std::function<void(const std::vector<Backend::RecordId>& ids, const QString& field)> complete{};
};

/// The settings of the selected records beneath their section, as long as the editor says that they are open. What the
/// user changes is posted; typing a value, a drag, and turning the wheel are one step of undo each. The GUI thread.
class RecordForm final : public QWidget
{
public:
    /// The editor must outlive it. Without a part it shows `SectionRecords::fieldsOf`.
    RecordForm(GuiContext& owner, RecordEditor& shownEditor, QWidget* parent = nullptr, int columns = 1,
               RecordPart shownPart = {});

    /// Shows what is selected, and the present version.
    void showSelected();

    /// Fields offer other choices.
    void renew();
    /// The first field gets the focus.
    void focusFirst();

private:
    std::uint32_t gestureOf(const QString& field);

    RecordEditor& editor;
    const RecordPart part;
    SettingsForm* form;
    std::vector<Backend::RecordId> shown;
    std::uint64_t version = 0;
    std::uint32_t dragGesture = 0;  // of the drag that goes on
};
}  // namespace Gui::Forms
