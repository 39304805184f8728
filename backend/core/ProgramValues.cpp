#include "backend/core/ProgramValues.h"

#include "backend/xml/XmlElement.h"
#include "backend/xml/XmlWriter.h"

namespace Backend
{
std::string ProgramValues::writeRecord(RecordId id) const
{
    return id == ID ? xmlOpenTag(SECTION) + toXmlAttributes(program) + xmlCloseEmpty() : "";
}

void ProgramValues::replaceRecord(RecordId id, const XmlElement& element)
{
    if (id == ID) read(element, program);
}

std::string ProgramValues::toXmlAttributes(const Program& program)
{
    return xmlStringAttribute("name", program.name) + xmlIntAttribute("tempo", program.tempo) +
           xmlIntAttribute("tempoSource", program.tempoSource);
}

void ProgramValues::read(const XmlElement& element, Program& into)
{
    into.name = element.getAttribute("name");
    const int tempo = element.getIntAttribute("tempo", into.tempo);
    if (tempo >= Program::LOWEST_TEMPO && tempo <= Program::HIGHEST_TEMPO) into.tempo = tempo;
    into.tempoSource = element.getByteAttribute("tempoSource", Program::INTERNAL_TEMPO_SOURCE);
}
}  // namespace Backend
