#include "backend/files/FileName.h"

#include <algorithm>

#include "backend/xml/Text.h"

namespace Backend
{
namespace
{
constexpr std::size_t LONGEST_NAME = 255 - 4;

bool isControl(char character)
{
    const auto code = static_cast<unsigned char>(character);
    return code < 32 || code == 127;
}
}  // namespace

bool staysInFolder(std::string_view name)
{
    return !name.empty() && name != "." && name != ".." && name.size() <= LONGEST_NAME &&
           name.find_first_of("/\\") == std::string_view::npos && std::ranges::none_of(name, isControl);
}

bool isValidFileName(std::string_view name)
{
    const std::string_view trimmed = Text::trim(name);
    return staysInFolder(trimmed) && trimmed.find_first_of(R"(\/:*?"<>|)") == std::string_view::npos;
}
}  // namespace Backend
