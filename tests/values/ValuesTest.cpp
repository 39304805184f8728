#include "backend/values/Cell.h"
#include "backend/values/Fraction.h"
#include "backend/values/NoteToggle.h"
#include "backend/values/OnOffToggle.h"
#include "backend/values/RelativeFixedValue.h"
#include "backend/values/SelectControlType.h"
#include "backend/values/SelectType.h"
#include "backend/values/TimeIntervalType.h"
#include "tests/values/ValueTesting.h"

TEST(Cell, IsRowCommaColumn)
{
    expectRows<Cell>({{"2,3", {2, 3}, "2,3"},
                      {"3", {3, -1}, "3,-1"},
                      {"", {}, "-1,-1"},
                      {",5", {-1, 5}, "-1,5"},
                      {" 2 , 3 ,4", {2, 3}, "2,3"},
                      {"2,  ", {2, -1}, "2,-1"},
                      {"x,y", {}, "-1,-1"},
                      {"+7a,-8b", {7, -8}, "7,-8"},
                      {"99999999999,1", {-1, 1}, "-1,1"}});
    EXPECT_LT((Cell{1, 9}), (Cell{2, 0}));
}

TEST(Fraction, TakesTheFirstKindOfSeparatorAndStaysInRange)
{
    expectRows<Fraction>({{"2/4", {2, 4}, "2_4"},
                          {"2\\4", {2, 4}, "2_4"},
                          {"2_4", {2, 4}, "2_4"},
                          {"3", {3, 1}, "3_1"},
                          {"", {}, "1_1"},
                          {"0_200", {1, 99}, "1_99"},
                          {"-3/100", {1, 99}, "1_99"},
                          {"2_3/5", {2, 5}, "2_5"},
                          {"2\\3/5\\7", {2, 5}, "2_5"},
                          {"2/3/5", {2, 3}, "2_3"},
                          {"/7", {1, 7}, "1_7"},
                          {"7/", {7, 1}, "7_1"},
                          {" 5 / 6 ", {5, 6}, "5_6"}});
    EXPECT_EQ(Fraction::fromXmlString("7" + std::string(219, ' ') + "/2"), (Fraction{7, 1})) << "beyond 220 characters";
    EXPECT_EQ((Fraction{2, 3}).toDisplayString(), "2/3");
}

TEST(Words, AreReadAsTheyArePrintedAndOthersAreADefault)
{
    using State = OnOffToggle::State;
    expectRows<OnOffToggle>({{"on", {State::on}, "on"},
                             {"off", {State::off}, "off"},
                             {"toggle", {State::toggle}, "toggle"},
                             {"", {}, "toggle"},
                             {"On", {State::toggle}, "toggle"},
                             {" on", {State::toggle}, "toggle"}});

    using Mode = NoteToggle::Mode;
    expectRows<NoteToggle>({{"type1", {Mode::type1}, "type1"},
                            {"  type2 ", {Mode::type2}, "type2"},
                            {"off", {}, "off"},
                            {"", {}, "off"},
                            {"Type1", {}, "off"},
                            {"\ttype1", {}, "off"}});

    using Select = SelectType::Kind;
    expectRows<SelectType>({{"up", {Select::up, 0}, "up"},
                            {"down", {Select::down, 0}, "down"},
                            {"selected", {Select::selected, 0}, "selected"},
                            {"all", {Select::all, 0}, "all"},
                            {"12", {Select::specific, 12}, "12"},
                            {"-1", {Select::specific, -1}, "-1"},
                            {"", {Select::specific, 0}, "0"},
                            {" up", {Select::specific, 0}, "0"},
                            {"All", {Select::specific, 0}, "0"}});

    using Kind = SelectControlType::Kind;
    expectRows<SelectControlType>({{"up", {Kind::up}, "up"},
                                   {"down", {Kind::down}, "down"},
                                   {"left", {Kind::left}, "left"},
                                   {"right", {}, "right"},
                                   {"selected", {Kind::selected}, "selected"},
                                   {"all", {Kind::all}, "all"},
                                   {"1,2", {Kind::specific, {1, 2}}, "1,2"},
                                   {"4", {Kind::specific, {4, -1}}, "4,-1"},
                                   {"", {Kind::specific, {-1, -1}}, "-1,-1"},
                                   {"Left", {Kind::specific, {-1, -1}}, "-1,-1"}});

    using Interval = TimeIntervalType::Kind;
    expectRows<TimeIntervalType>({{"ppq", {Interval::ppq}, "ppq"},
                                  {"noteInterval", {}, "noteInterval"},
                                  {"", {}, "noteInterval"},
                                  {"PPQ", {}, "noteInterval"}});
}

TEST(RelativeFixedValue, IsRelativeWithASignOrBlank)
{
    expectRows<RelativeFixedValue>({{"", {true, 0}, ""},
                                    {"   ", {true, 0}, ""},
                                    {"+0", {true, 0}, ""},
                                    {"-0", {true, 0}, ""},
                                    {"0", {false, 0}, "0"},
                                    {"+3", {true, 3}, "+3"},
                                    {"-3", {true, -3}, "-3"},
                                    {" 7 ", {false, 7}, "7"},
                                    {" +5 semitones", {true, 5}, "+5"},
                                    {"x", {false, 0}, "0"},
                                    {"+-5", {true, 0}, ""},
                                    {"- 5", {true, 0}, ""},
                                    {"-2147483648", {true, -2147483648}, "-2147483648"},
                                    {"2147483648", {false, 0}, "0"}});
    EXPECT_EQ((RelativeFixedValue{false, -3}).toXmlString(), "-3");
}
