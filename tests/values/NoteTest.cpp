#include "backend/values/Note.h"

#include <gtest/gtest.h>

using namespace Backend::MidiEngine;

TEST(Note, ReadsItsText)
{
    constexpr std::pair<const char*, int> rows[] = {{"C4", 60},
                                                    {"c#4", 61},
                                                    {"Bb", 70},
                                                    {"60", 60},
                                                    {"", 255},
                                                    {"C-1", 0},
                                                    {"g9", 127},
                                                    {"Cb4", 59},
                                                    {"a", 69},
                                                    {"B#3", 60},
                                                    {"H4", 60},
                                                    {"300", 44},
                                                    {"E+4", 64},
                                                    {"F# 4", 66},
                                                    {"Gx", 67},
                                                    {"G12", 163},
                                                    {"7up", 7},
                                                    {"C2147483647", 0},
                                                    {"C#-2147483648", 13},
                                                    {"D4 x", 62}};
    for (const auto& [text, number] : rows) EXPECT_EQ(parseNote(text), number) << text;
    EXPECT_FALSE(Note("").isNote());
    EXPECT_EQ(Note("99999999999").getNumber(), 60) << "a number out of range";

    EXPECT_EQ(Note(0).toXmlString(), "C-1");
    EXPECT_EQ(Note(-1).toXmlString(), "");
    EXPECT_EQ(getNoteName(61, Octave::without), "C#");
    for (int number = 0; number < 128; ++number) EXPECT_EQ(Note(Note(number).toXmlString()), Note(number));
}

TEST(Note, MovesThroughTheScaleOfItsKey)
{
    // The key of 2 is D: a third goes from D to F#, from E to G. A pitch outside the scale counts as the degree above.
    const struct {
        int interval, base, key, result;
    } rows[] = {{1, 60, 0, 62},  {2, 60, 0, 64},  {-1, 60, 0, 59}, {-1, 62, 0, 60}, {8, 60, 0, 74},  {0, 61, 0, 61},
                {2, 62, 2, 66},  {2, 64, 2, 67},  {1, 61, 0, 63},  {7, 61, 0, 73},  {-7, 61, 0, 49}, {-8, 60, 0, 47},
                {-1, 65, 0, 64}, {-2, 64, 0, 60}, {-4, 71, 0, 64}, {3, 65, 0, 71},  {1, 0, 11, 2}};
    for (const auto& [interval, base, key, result] : rows)
        EXPECT_EQ(Note(interval, Note(base), Note(key)).getNumber(), result)
            << interval << " steps from " << base << " in " << key;
    for (int key = 0; key < 12; ++key)
        for (const int degree : {0, 2, 4, 5, 7, 9, 11}) {
            const Note base(60 + key + degree);
            EXPECT_EQ(Note(7, base, Note(key)).getNumber(), base.getNumber() + 12);
            for (int steps = 1; steps <= 14; ++steps)
                EXPECT_EQ(Note(-steps, Note(steps, base, Note(key)), Note(key)), base)
                    << steps << " steps from " << base.getNumber() << " in " << key;
        }
}
