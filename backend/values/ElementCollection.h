#pragma once

#include <memory>

namespace Backend::Component
{
/// Iterates over the elements of a collection once, from the first to the last. The collection must outlive it.
template <class Element>
class IteratorIF
{
public:
    virtual ~IteratorIF() = default;
    virtual bool hasNext() const = 0;
    /// Returns the current element and advances to the next; null at the end.
    virtual Element* next() = 0;
};

template <class Element>
using ConstIteratorIF = IteratorIF<const Element>;

/// The elements of a section, found by their ids. How long a pointer to an element is valid depends on the derived
/// class.
template <class Element, class Id>
class ElementCollection
{
public:
    /// An iterator over all elements in the order of the collection; the caller owns it.
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
