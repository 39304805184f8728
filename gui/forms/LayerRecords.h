#pragma once

#include "backend/model/Layer.h"
#include "gui/forms/BindingFields.h"
#include "gui/forms/ListRecords.h"

namespace Gui::Forms
{
/// The settings of a layer in the order of a form. A value that is not in use, as the length of the notes without an
/// arpeggio, is not stored.
std::vector<FormField> fieldsOf(Backend::Layers::Layer& layer, const FieldLists& lists);

/// The layers of the program as the window knows them.
class LayerRecords final : public ListRecords<Backend::Layers::Layer>
{
public:
    /// The lists must outlive it.
    explicit LayerRecords(const FieldLists& names) : lists(names) {}

    const Kind& getKind() const override;
    /// One line: "L:1  Ch:1  T:+2", after "(mute)" if it is muted.
    QString describe(Backend::RecordId id) const override;
    std::vector<FormField> fieldsOf(Backend::RecordId id) override { return Forms::fieldsOf(at(id), lists); }

private:
    const FieldLists& lists;
};
}  // namespace Gui::Forms
