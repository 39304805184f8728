#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <utility>

#include "backend/values/ElementCollection.h"

namespace Backend::Component
{
/// Iterates over an `ElementMap` by ascending id. It holds an id and no position in the map, so elements may be added
/// and removed meanwhile.
template <class Element, class Map>
class MapIterator final : public IteratorIF<Element>
{
public:
    explicit MapIterator(Map& elements) : map(elements) {}

    bool hasNext() const override { return findNext() != map.end(); }

    Element* next() override
    {
        const auto found = findNext();
        if (found == map.end()) return nullptr;
        last = found->first;
        return &found->second;
    }

private:
    auto findNext() const { return last ? map.upper_bound(*last) : map.begin(); }

    Map& map;
    std::optional<typename Map::key_type> last;
};

template <class Element, class Id>
using HashMapIterator = MapIterator<Element, std::map<Id, Element>>;
template <class Element, class Id>
using ConstHashMapIterator = MapIterator<const Element, const std::map<Id, Element>>;

/// Elements by id, sorted, because files list them in the order of the ids, which is that of their packed form. A
/// pointer to an element is valid until that element is removed.
template <class Element, class Id>
class ElementMap : public ElementCollection<Element, Id>
{
public:
    std::unique_ptr<IteratorIF<Element>> createIterator() override
    {
        return std::make_unique<HashMapIterator<Element, Id>>(elements);
    }
    std::unique_ptr<ConstIteratorIF<Element>> createIterator() const override
    {
        return std::make_unique<ConstHashMapIterator<Element, Id>>(elements);
    }

    Element* findElement(const Id& id) override
    {
        const auto found = elements.find(id);
        return found == elements.end() ? nullptr : &found->second;
    }
    const Element* findElement(const Id& id) const override
    {
        const auto found = elements.find(id);
        return found == elements.end() ? nullptr : &found->second;
    }

    /// Adds an element, in place of the present one of that id.
    void put(const Id& id, Element element) { elements.insert_or_assign(id, std::move(element)); }
    void remove(const Id& id) { elements.erase(id); }
    void clear() { elements.clear(); }
    std::size_t size() const { return elements.size(); }

private:
    std::map<Id, Element> elements;
};
}  // namespace Backend::Component
