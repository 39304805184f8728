#include "backend/values/NoteIntervals.h"

#include <gtest/gtest.h>

#include <limits>

TEST(NoteIntervals, HaveNamesIndicesAndPulsesAndWithoutANameAreANumberAndIndexNought)
{
    const struct {
        int index, ppq;
        const char* name;
    } rows[] = {{1, 20, "1/64 Triplet"},     {7, 180, "1/16 Dotted"}, {11, 480, "1/4"},
                {15, 1280, "Whole Triplet"}, {17, 1920, "Whole"},     {22, 30720, "16 Whole"}};
    for (const auto& [index, ppq, name] : rows) {
        EXPECT_EQ(noteIntervalName(ppq), name);
        EXPECT_EQ(noteIntervalFromIndex(index), ppq);
    }
    for (int index = 1; index <= 22; ++index) EXPECT_EQ(noteIntervalIndex(noteIntervalFromIndex(index)), index);
    for (const int ppq : {-20, 0, 19, 481, 30721}) {
        EXPECT_EQ(noteIntervalName(ppq), std::to_string(ppq));
        EXPECT_EQ(noteIntervalIndex(ppq), 0);
    }
    for (const int index : {-1, 0, 23}) EXPECT_EQ(noteIntervalFromIndex(index), 480);
}

TEST(NoteIntervals, TheNearestIsTheFirstThatIsNotShorter)
{
    constexpr std::pair<int, int> rows[] = {{-5, 1},
                                            {0, 1},
                                            {20, 1},
                                            {21, 2},
                                            {480, 11},
                                            {481, 12},
                                            {15360, 21},
                                            {15361, 22},
                                            {30720, 22},
                                            {30721, 22},
                                            {std::numeric_limits<int>::max(), 22}};
    for (const auto& [ppq, index] : rows) EXPECT_EQ(nearestNoteIntervalIndex(ppq), index) << ppq;
}
