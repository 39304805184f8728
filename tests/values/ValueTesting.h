#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <string_view>

/// One row of a table: a text, the value that it gives, and what the value prints.
template <class Value>
struct Row {
    std::string_view text;
    Value value;
    std::string_view printed;
};

template <class Value>
void expectRows(std::initializer_list<Row<Value>> rows)
{
    for (const auto& [text, value, printed] : rows) {
        EXPECT_TRUE(Value::fromXmlString(text) == value)
            << "'" << text << "' reads as '" << Value::fromXmlString(text).toXmlString() << "'";
        EXPECT_EQ(value.toXmlString(), printed);
    }
}
