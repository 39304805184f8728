#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <utility>

#include "backend/values/ElementCollection.h"

namespace Backend::Component
{
/// The elements of an `ElementMap` by ascending id. It remembers an id and no place in the map, so elements may come
/// and go while it walks.
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

/// Elements by id. The order of a walk shows in stored files, so it is that of the ids, which is the order of their
/// packed form: the elements are sorted rather than hashed. An element stays where it is until it is removed.
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

    /// Takes the place of what the map holds for that id.
    void put(const Id& id, Element element) { elements.insert_or_assign(id, std::move(element)); }
    void remove(const Id& id) { elements.erase(id); }
    void clear() { elements.clear(); }
    std::size_t size() const { return elements.size(); }

private:
    std::map<Id, Element> elements;
};
}  // namespace Backend::Component
