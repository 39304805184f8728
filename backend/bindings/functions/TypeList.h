#pragma once

#include <cstddef>
#include <type_traits>

namespace Backend
{
/// A list of types, which may be incomplete.
template <class... Types>
struct TypeList {
    static constexpr std::size_t size = sizeof...(Types);

    /// Calls `visit(std::type_identity<Type>{})` for each type, in order.
    template <class Visit>
    static constexpr void forEach(Visit&& visit)
    {
        (visit(std::type_identity<Types>{}), ...);
    }
};

/// A row of a list of classes: a class and the settings interface of its family.
template <class Settings, class Type>
struct CatalogueRow;

namespace Detail
{
template <class...>
struct Concatenation {
    using Type = TypeList<>;
};
template <class... First, class... Second, class... Rest>
struct Concatenation<TypeList<First...>, TypeList<Second...>, Rest...>
    : Concatenation<TypeList<First..., Second...>, Rest...> {
};
template <class... Only>
struct Concatenation<TypeList<Only...>> {
    using Type = TypeList<Only...>;
};

template <class Rows>
struct Catalogue;
template <class... Settings, class... Types>
struct Catalogue<TypeList<CatalogueRow<Settings, Types>...>> {
    using All = TypeList<Types...>;
    template <class Family>
    using Of = typename Concatenation<
        std::conditional_t<std::is_same_v<Settings, Family>, TypeList<Types>, TypeList<>>...>::Type;
};
}  // namespace Detail

/// The classes of a list, in its order.
template <class Rows>
using ClassesOf = typename Detail::Catalogue<Rows>::All;
/// The classes of one family.
template <class Rows, class Settings>
using FamilyOf = typename Detail::Catalogue<Rows>::template Of<Settings>;

/// A visitor with an operation `visit` for each type of a list.
template <class List>
class VisitorOf;

template <>
class VisitorOf<TypeList<>>
{
public:
    virtual ~VisitorOf() = default;
    void visit() = delete;  // so that there is a `visit` to overload
};

template <class First, class... Rest>
class VisitorOf<TypeList<First, Rest...>> : public VisitorOf<TypeList<Rest...>>
{
public:
    using VisitorOf<TypeList<Rest...>>::visit;
    virtual void visit(First& type) = 0;
};

/// Eight at a time: what compilers need for a chain of bases grows with more than the square of its length.
template <class A, class B, class C, class D, class E, class F, class G, class H, class... Rest>
class VisitorOf<TypeList<A, B, C, D, E, F, G, H, Rest...>> : public VisitorOf<TypeList<Rest...>>
{
public:
    using VisitorOf<TypeList<Rest...>>::visit;
    virtual void visit(A& type) = 0;
    virtual void visit(B& type) = 0;
    virtual void visit(C& type) = 0;
    virtual void visit(D& type) = 0;
    virtual void visit(E& type) = 0;
    virtual void visit(F& type) = 0;
    virtual void visit(G& type) = 0;
    virtual void visit(H& type) = 0;
};

/// Implements a visitor of a list by one member template of `Self`: `void visitAny(Type& type)`.
template <class Self, class Visitor, class List>
class VisitsAny;

template <class Self, class Visitor>
class VisitsAny<Self, Visitor, TypeList<>> : public Visitor
{
};

template <class Self, class Visitor, class First, class... Rest>
class VisitsAny<Self, Visitor, TypeList<First, Rest...>> : public VisitsAny<Self, Visitor, TypeList<Rest...>>
{
public:
    using VisitsAny<Self, Visitor, TypeList<Rest...>>::visit;
    void visit(First& type) override { static_cast<Self&>(*this).visitAny(type); }
};

template <class Self, class Visitor, class A, class B, class C, class D, class E, class F, class G, class H,
          class... Rest>
class VisitsAny<Self, Visitor, TypeList<A, B, C, D, E, F, G, H, Rest...>>
    : public VisitsAny<Self, Visitor, TypeList<Rest...>>
{
public:
    using VisitsAny<Self, Visitor, TypeList<Rest...>>::visit;
    void visit(A& type) override { visitAny(type); }
    void visit(B& type) override { visitAny(type); }
    void visit(C& type) override { visitAny(type); }
    void visit(D& type) override { visitAny(type); }
    void visit(E& type) override { visitAny(type); }
    void visit(F& type) override { visitAny(type); }
    void visit(G& type) override { visitAny(type); }
    void visit(H& type) override { visitAny(type); }

private:
    void visitAny(auto& type) { static_cast<Self&>(*this).visitAny(type); }
};
}  // namespace Backend
