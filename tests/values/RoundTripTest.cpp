#include <gtest/gtest.h>

#include <random>

#include "tests/values/ValueTypes.h"

namespace
{
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

template <class Value>
void expectRoundTrips()
{
    static_assert(std::is_trivially_copyable_v<Value>, "values are copied freely");
    Texts texts;
    for (int round = 0; round < 20000; ++round) {
        const std::string text = texts.next();
        const auto value = Value::fromXmlString(text);
        if (!mirrors(value)) continue;
        const std::string printed = value.toXmlString();
        ASSERT_EQ(Value::fromXmlString(printed).toXmlString(), printed) << typeid(Value).name() << " '" << text << "'";
    }
}

template <class... Values>
void expectAllRoundTrips(const std::tuple<Values...>*)
{
    (expectRoundTrips<Values>(), ...);
}
}  // namespace

TEST(EveryValue, PrintsTheSameAgainWhenItsPrintIsRead) { expectAllRoundTrips(static_cast<ValueTypes*>(nullptr)); }
