#pragma once

#include <vector>

#include "backend/model/RecordFields.h"

/// Edits of axes and buttons, which are always there.
namespace Gui::Joystick::PartEdits
{
inline constexpr const char* FUNCTIONS = "<Function>";

/// Each target does what the added record in its place did, and those after the last one begin again.
inline std::vector<Backend::RecordEdit> setFunctions(const std::vector<Backend::RecordId>& targets,
                                                     std::vector<Backend::Fields> added)
{
    std::vector<Backend::RecordEdit> edits;
    for (std::size_t i = 0; i < targets.size(); ++i) {
        Backend::Fields& fields = added[i % added.size()];
        edits.push_back({.id = targets[i], .fields = {{FUNCTIONS, Backend::RecordFields::valueOf(fields, FUNCTIONS)}}});
    }
    return edits;
}

inline std::vector<Backend::RecordEdit> clearFunctions(const std::vector<Backend::RecordId>& ids)
{
    std::vector<Backend::RecordEdit> edits;
    for (const Backend::RecordId id : ids) edits.push_back({.id = id, .fields = {{FUNCTIONS, ""}}});
    return edits;
}
}  // namespace Gui::Joystick::PartEdits
