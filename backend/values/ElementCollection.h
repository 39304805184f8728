#pragma once

#include <memory>

namespace Backend::Component
{
/// Walks the elements of a collection once, from the first to the last. The collection must outlive it.
template <class Element>
class IteratorIF
{
public:
    virtual ~IteratorIF() = default;
    virtual bool hasNext() const = 0;
    /// The current element, after which the iterator moves on; null at the end.
    virtual Element* next() = 0;
};

template <class Element>
using ConstIteratorIF = IteratorIF<const Element>;

/// What every section of a program is: elements that are found by their id. Pointers to elements hold as long as the
/// storage of the collection says.
template <class Element, class Id>
class ElementCollection
{
public:
    /// A walk over all elements in the order of the collection, for the caller to keep.
    virtual std::unique_ptr<IteratorIF<Element>> createIterator() = 0;
    /// Null if no element has that id.
    virtual Element* findElement(const Id& id) = 0;

    virtual std::unique_ptr<ConstIteratorIF<Element>> createIterator() const = 0;
    virtual const Element* findElement(const Id& id) const = 0;
    virtual ~ElementCollection() = default;

protected:
    ElementCollection() = default;
    ElementCollection(const ElementCollection&) = default;
    ElementCollection& operator=(const ElementCollection&) = default;
};
}  // namespace Backend::Component
