#pragma once

#include <algorithm>
#include <cstdint>
#include <ostream>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "backend/values/ElementList.h"
#include "backend/values/SelectType.h"
#include "backend/xml/XmlElement.h"
#include "backend/xml/XmlWriter.h"

namespace Backend::Layers
{
/// The items of a section that is a list: layers or oscillators. The id of an item is its index. `Item` defines the
/// tags, `SECTION` and `ELEMENT`.
template <class Item, class Id>
class SectionList : public Component::ElementList<Item, Id>
{
public:
    /// The highest number of items.
    static constexpr Id MOST = 10000;

    std::span<Item> all() { return elements; }

    /// Appends an item and sets its id.
    void add(Item item)
    {
        item.id = static_cast<Id>(elements.size());
        elements.push_back(std::move(item));
    }

    /// Replaces the item of the same id; if there are not so many, default items are added before it. A negative id,
    /// and one of `MOST` or more, is ignored.
    void put(const Item& item)
    {
        if (item.id < 0 || item.id >= MOST) return;
        while (elements.size() <= static_cast<std::size_t>(item.id)) add({});
        elements[static_cast<std::size_t>(item.id)] = item;
    }

    /// Inserts an item before that of `id`; those after it move up. The size of the list appends it. Any other id, and
    /// a list of `MOST` items, is ignored.
    void insert(Id id, Item item)
    {
        const auto place = static_cast<std::size_t>(id);
        if (id < 0 || place > elements.size() || elements.size() >= MOST) return;
        elements.insert(elements.begin() + id, std::move(item));
        number(place);
    }

    /// Removes the item of `id`; those after it move down. An unknown id is ignored.
    void remove(Id id)
    {
        if (this->findElement(id) == nullptr) return;
        elements.erase(elements.begin() + id);
        number(static_cast<std::size_t>(id));
    }

    void clear() { elements.clear(); }

    /// Reads the section's element: its items replace the present ones, or with "merge" are added. `readItem(element,
    /// id)` makes an item of its element.
    template <class ReadItem>
    void readXml(const XmlElement& section, ReadItem&& readItem)
    {
        if (!section.getBoolAttribute("merge", false)) clear();
        forEachElement(section, [&](const XmlElement& child) {
            if (child.getTagName() == Item::ELEMENT && elements.size() < MOST)
                add(readItem(child, static_cast<Id>(elements.size())));
        });
    }
    void readXml(const XmlElement& section) { readXml(section, &Item::fromXml); }

    /// Writes the element, one tag a line, indented by `indent` TABs: the items of `ids`, marked to be merged, or
    /// without ids all items.
    void writeXml(std::ostream& out, int indent, std::span<const Id> ids) const
    {
        const std::string tabs(static_cast<std::size_t>(indent), '\t');
        out << tabs << xmlOpenTag(Item::SECTION) << xmlBoolAttribute("merge", !ids.empty()) << xmlCloseOpen() << '\n';
        for (const Item& item : elements)
            if (ids.empty() || std::ranges::find(ids, item.id) != ids.end()) item.writeXml(out, indent + 1);
        out << tabs << xmlEndTag(Item::SECTION) << '\n';
    }

    /// Selects the item above or below the first selected one, or that of an id, and calls `notify(item)` for each item
    /// whose selection was set. Without an item there nothing changes.
    template <class Notify>
    void select(const SelectType& to, Notify&& notify)
    {
        const auto current = std::ranges::find_if(elements, &Item::selected);
        std::int64_t target = current == elements.end() ? -1 : current->id;
        if (to.kind == SelectType::Kind::specific) target = to.value;
        if (to.kind == SelectType::Kind::up) ++target;
        if (to.kind == SelectType::Kind::down) --target;
        if (target < 0 || target >= static_cast<std::int64_t>(elements.size())) return;

        const auto setSelected = [&](Item& item, bool selected) {
            item.selected = selected;
            notify(std::as_const(item));
        };
        if (current != elements.end() && current->id != target) setSelected(*current, false);
        setSelected(elements[static_cast<std::size_t>(target)], true);
    }

    /// Selects the items of `ids` only.
    void selectOnly(const std::vector<Id>& ids)
    {
        for (Item& item : elements) item.selected = std::ranges::find(ids, item.id) != ids.end();
    }

    /// Calls `visit` with the items that `select` names: all, the selected ones, or that of an id.
    template <class Visit>
    void forEachNamed(const SelectType& select, Visit&& visit)
    {
        for (Item& item : elements)
            if (select.kind == SelectType::Kind::all || (select.kind == SelectType::Kind::selected && item.selected) ||
                (select.kind == SelectType::Kind::specific && item.id == select.value))
                visit(item);
    }

protected:
    using Component::ElementList<Item, Id>::elements;

private:
    /// Sets the ids from an index on.
    void number(std::size_t first)
    {
        for (std::size_t index = first; index < elements.size(); ++index) elements[index].id = static_cast<Id>(index);
    }
};
}  // namespace Backend::Layers
