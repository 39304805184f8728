#include <gtest/gtest.h>

#include "backend/values/ElementList.h"
#include "backend/values/ElementMap.h"
#include "backend/values/Key.h"

using namespace Backend::Component;

namespace
{
struct NumberRow final : ElementList<int, int> {
    void add(int element) { elements.push_back(element); }
    void removeLast() { elements.pop_back(); }
};

/// What is left of a walk.
template <class Element>
std::vector<int> rest(std::unique_ptr<IteratorIF<Element>> iterator)
{
    std::vector<int> elements;
    while (iterator->hasNext()) elements.push_back(*iterator->next());
    EXPECT_EQ(iterator->next(), nullptr);
    return elements;
}
}  // namespace

TEST(ElementMap, WalksByAscendingPackedKey)
{
    ElementMap<int, Key> keys;
    keys.put({.keyCode = 'B', .shift = true}, 3);
    keys.put({.keyCode = 'Z'}, 2);
    keys.put({.keyCode = 'A', .win = true}, 4);
    keys.put({.keyCode = 'A'}, 0);
    keys.put({.keyCode = 'A' + 256}, 1);  // the same key

    EXPECT_EQ(rest(keys.createIterator()), (std::vector{1, 2, 3, 4}));
    EXPECT_EQ(rest(std::as_const(keys).createIterator()), (std::vector{1, 2, 3, 4}));
    EXPECT_EQ(*keys.findElement(Key::fromXmlString("Shift B")), 3);
    EXPECT_EQ(std::as_const(keys).findElement(Key::fromXmlString("Shift A")), nullptr);
}

TEST(ElementMap, MayChangeDuringAWalk)
{
    ElementMap<int, int> map;
    for (const int id : {10, 20, 30}) map.put(id, id);
    auto iterator = map.createIterator();
    EXPECT_EQ(*iterator->next(), 10);
    map.remove(10);
    map.remove(20);
    map.put(5, 5);
    map.put(25, 25);
    EXPECT_EQ(rest(std::move(iterator)), (std::vector{25, 30}));
}

TEST(ElementList, FindsByPositionAndWalksInOrder)
{
    NumberRow row;
    for (const int element : {7, 8, 9}) row.add(element);
    EXPECT_EQ(rest(row.createIterator()), (std::vector{7, 8, 9}));
    EXPECT_EQ(rest(std::as_const(row).createIterator()), (std::vector{7, 8, 9}));
    EXPECT_EQ(*row.findElement(2), 9);
    for (const int id : {-1, 3, -2147483647 - 1}) EXPECT_EQ(row.findElement(id), nullptr);
}

TEST(ElementList, MayMoveInMemoryAndShrinkDuringAWalk)
{
    NumberRow row;
    row.add(0);
    auto growing = row.createIterator();
    growing->next();
    for (int element = 1; element < 1000; ++element) row.add(element);
    EXPECT_EQ(*growing->next(), 1);
    while (row.size() > 2) row.removeLast();
    EXPECT_FALSE(growing->hasNext());
    EXPECT_EQ(growing->next(), nullptr);
}
