#include "backend/values/NoteIntervals.h"

#include <gtest/gtest.h>

#include <limits>

TEST(NoteIntervals, HaveNamesIndicesAndPulses)
{
    struct IntervalRow {
        int index, ppq;
        const char* name;
    };
    for (const auto& [index, ppq, name] : {IntervalRow{1, 20, "1/64 Triplet"},
                                           {7, 180, "1/16 Dotted"},
                                           {11, 480, "1/4"},
                                           {15, 1280, "Whole Triplet"},
                                           {17, 1920, "Whole"},
                                           {22, 30720, "16 Whole"}}) {
        EXPECT_EQ(noteIntervalName(ppq), name);
        EXPECT_EQ(noteIntervalFromIndex(index), ppq);
    }
    for (int index = 1; index <= 22; ++index) EXPECT_EQ(noteIntervalIndex(noteIntervalFromIndex(index)), index);
}

TEST(NoteIntervals, WithoutANameAreANumberAndIndexNought)
{
    for (const int ppq : {-20, 0, 19, 481, 30721}) {
        EXPECT_EQ(noteIntervalName(ppq), std::to_string(ppq));
        EXPECT_EQ(noteIntervalIndex(ppq), 0);
    }
    for (const int index : {-1, 0, 23}) EXPECT_EQ(noteIntervalFromIndex(index), 480);
}

TEST(NoteIntervals, TheNearestIsTheFirstThatIsNotShorter)
{
    for (const auto& [ppq, index] : {std::pair{-5, 1},
                                     {0, 1},
                                     {20, 1},
                                     {21, 2},
                                     {480, 11},
                                     {481, 12},
                                     {15360, 21},
                                     {15361, 22},
                                     {30720, 22},
                                     {30721, 22},
                                     {std::numeric_limits<int>::max(), 22}})
        EXPECT_EQ(nearestNoteIntervalIndex(ppq), index) << ppq;
}
