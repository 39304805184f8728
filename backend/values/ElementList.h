#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "backend/values/ElementCollection.h"

namespace Backend::Component
{
/// Iterates over an `ElementList`. It holds an index, so it stays valid when the vector moves in memory, and it stops
/// at the first index outside.
template <class Element, class Vector>
class IndexIterator final : public IteratorIF<Element>
{
public:
    explicit IndexIterator(Vector& elements) : vector(elements) {}

    bool hasNext() const override { return index < vector.size(); }
    Element* next() override { return hasNext() ? &vector[index++] : nullptr; }

private:
    Vector& vector;
    std::size_t index = 0;
};

template <class Element>
using VectorIterator = IndexIterator<Element, std::vector<Element>>;
template <class Element>
using ConstVectorIterator = IndexIterator<const Element, const std::vector<Element>>;

/// Elements in a vector, whose ids are their indices from 0: `Id` converts to a 32-bit number. A pointer to an element
/// is valid until elements are added or removed.
template <class Element, class Id>
class ElementList : public ElementCollection<Element, Id>
{
public:
    std::unique_ptr<IteratorIF<Element>> createIterator() override
    {
        return std::make_unique<VectorIterator<Element>>(elements);
    }
    std::unique_ptr<ConstIteratorIF<Element>> createIterator() const override
    {
        return std::make_unique<ConstVectorIterator<Element>>(elements);
    }

    Element* findElement(const Id& id) override { return has(id) ? &elements[indexOf(id)] : nullptr; }
    const Element* findElement(const Id& id) const override { return has(id) ? &elements[indexOf(id)] : nullptr; }

    std::size_t size() const { return elements.size(); }

protected:
    // Code that adds or removes elements sets their ids.
    std::vector<Element> elements;

private:
    // An id below 0 becomes an index that no vector has.
    static std::size_t indexOf(const Id& id)
    {
        return static_cast<std::size_t>(std::int64_t{static_cast<std::int32_t>(id)});
    }
    bool has(const Id& id) const { return indexOf(id) < elements.size(); }
};
}  // namespace Backend::Component
