#include "backend/files/version2/Words.h"

#include <algorithm>
#include <charconv>

namespace Backend::Version2
{
std::string_view Words::word()
{
    rest.remove_prefix(std::min(rest.find_first_not_of(' '), rest.size()));
    const std::string_view found = rest.substr(0, rest.find(' '));
    rest.remove_prefix(found.size());
    return found;
}

std::string Words::text()
{
    std::string found(word());
    std::ranges::replace(found, '_', ' ');
    return found;
}

int Words::number(int lowest, int highest, int missing)
{
    std::string_view digits = word();
    if (digits.empty()) return missing;
    if (digits.front() == '+') digits.remove_prefix(1);
    int value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (error == std::errc() && end == digits.data() + digits.size() && value >= lowest && value <= highest)
        return value;
    refuse();
    return missing;
}
}  // namespace Backend::Version2
