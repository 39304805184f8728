#pragma once

#include <deque>
#include <numeric>
#include <sstream>
#include <string>
#include <vector>

#include "gui/forms/SectionRecords.h"

namespace Gui::Forms
{
/// The copies of a section that is a list, of layers or oscillators.
template <class Item>
class ListRecords : public SectionRecords
{
public:
    /// Replaces the copies, in place.
    void take(const std::vector<Item>& items)
    {
        for (std::size_t i = 0; i < items.size(); ++i) {
            if (i < copies.size())
                copies[i] = items[i];
            else
                copies.push_back(items[i]);
        }
        count = items.size();
    }

    std::size_t size() const { return count; }
    /// Only of one in `getIds`.
    Item& at(Backend::RecordId id) { return copies[static_cast<std::size_t>(id)]; }
    const Item& at(Backend::RecordId id) const { return copies[static_cast<std::size_t>(id)]; }

    std::vector<Backend::RecordId> getIds() const override
    {
        std::vector<Backend::RecordId> ids(count);
        std::iota(ids.begin(), ids.end(), 0);
        return ids;
    }
    std::string write(Backend::RecordId id) const override
    {
        std::ostringstream out;
        at(id).writeXml(out, 1);
        return out.str();
    }

private:
    std::deque<Item> copies;  // those beyond the count stay, because a form may still show them
    std::size_t count = 0;
};
}  // namespace Gui::Forms
