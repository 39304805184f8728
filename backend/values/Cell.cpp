#include "backend/values/Cell.h"

#include "backend/xml/Text.h"

Cell Cell::fromXmlString(std::string_view text)
{
    Cell cell;
    cell.row = Text::parseInteger(Text::nextToken(text, ',')).value_or(-1);
    cell.col = Text::parseInteger(Text::nextToken(text, ',')).value_or(-1);
    return cell;
}

std::string Cell::toXmlString() const { return std::to_string(row) + "," + std::to_string(col); }
