#include <gtest/gtest.h>

#include <random>

#include "tests/values/ValueTypes.h"

namespace
{
template <class Value>
class EveryValue : public testing::Test
{
};

template <class Tuple>
struct AsTypes;
template <class... Values>
struct AsTypes<std::tuple<Values...>> {
    using Type = testing::Types<Values...>;
};
TYPED_TEST_SUITE(EveryValue, AsTypes<ValueTypes>::Type);

/// Texts such as attributes hold, and such as they should not.
class Texts
{
public:
    std::string next()
    {
        static constexpr const char* PIECES[] = {
            "",       " ",       ",",   "+",        "-",           "_",           "/",           "\\",
            "1",      "64",      "300", "D1",       "D2",          "ge",          "Off",         "off",
            "on",     "up",      "all", "left",     "selected",    "type1",       "ppq",         "C#",
            "Shift ", "Alt ",    "A",   "Enter",    "Alt",         "Left",        "Note On",     "Controller Change",
            "type2",  "Unknown", "\t",  "\xC3\xA4", "99999999999", "Right Shift", "-2147483648", "saw"};
        std::string text;
        for (auto pieces = random() % 6; pieces > 0; --pieces) text += PIECES[random() % std::size(PIECES)];
        return text;
    }

private:
    std::minstd_rand random{1};
};
}  // namespace

TYPED_TEST(EveryValue, PrintsTheSameAgainWhenItsPrintIsRead)
{
    static_assert(std::is_trivially_copyable_v<TypeParam>, "values are copied freely");
    Texts texts;
    for (int round = 0; round < 20000; ++round) {
        const std::string text = texts.next();
        const auto value = TypeParam::fromXmlString(text);
        if (!mirrors(value)) continue;
        ASSERT_EQ(TypeParam::fromXmlString(value.toXmlString()).toXmlString(), value.toXmlString())
            << "'" << text << "'";
    }
}
