#pragma once

#include <QObject>
#include <QString>
#include <string>
#include <vector>

#include "backend/model/Edit.h"
#include "gui/forms/FormField.h"
#include "gui/forms/Selection.h"

namespace Gui::Forms
{
/// The records of a section as the window knows them, copies of what the backend reported. The GUI thread.
class SectionRecords
{
public:
    virtual ~SectionRecords() = default;

    struct Kind {
        const char* section;  ///< its element in a program
        const char* element;  ///< of a record
        Selection::Ids ids;
        QString one;                              ///< "layer"
        QString many;                             ///< "layers"
        QString removal = QObject::tr("Delete");  ///< the command that removes them
        bool canBeDoubled = true;
    };
    virtual const Kind& getKind() const = 0;

    /// In the order in which the user sees them.
    virtual std::vector<Backend::RecordId> getIds() const = 0;

    // Of a record in `getIds`

    /// The element as a program holds it; empty for one that the program does not have, which an edit adds.
    virtual std::string write(Backend::RecordId id) const = 0;
    /// As a list shows it.
    virtual QString describe(Backend::RecordId id) const = 0;
    /// As undo names it: "layer 2".
    virtual QString nameOf(Backend::RecordId id) const { return getKind().one + QStringLiteral(" %1").arg(id + 1); }
    /// Its settings, which read and set the copy. They stay valid as long as the record is in `getIds`, and until the
    /// views were notified of the first report without it.
    virtual std::vector<FormField> fieldsOf(Backend::RecordId id) = 0;

    /// What adds these records, each of which is given by all of its fields: after the last selected one or at the end,
    /// where ids are indices. A section with fixed ids says which ids they get; for as many of them as it has room.
    virtual std::vector<Backend::RecordEdit> makeAdditions(std::vector<Backend::Fields> added,
                                                           const Selection& selection) const;
    /// What removes these; they are in descending order.
    virtual std::vector<Backend::RecordEdit> makeRemovals(const std::vector<Backend::RecordId>& removed) const;
};
}  // namespace Gui::Forms
