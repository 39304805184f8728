#include "bench/BigBank.h"

#include <fstream>
#include <sstream>

#include "backend/model/Layer.h"

using namespace Backend;

namespace BigBank
{
std::string program(int number)
{
    std::ostringstream out;
    out << "<Program name=\"Program " << number << "\" tempo=\"120\" tempoSource=\"-1\">\n"
        << "\t<ComputerInput merge=\"false\" useKeyUpMod=\"false\">\n";
    for (int key = 0; key < 75; ++key)
        out << "\t\t<Key id=\"F" << key % 12 + 1 << "\" global=\"true\">\n\t\t\t\t<Function keepSending=\"false\">\n"
            << "\t\t\t\t\t<Down>\n\t\t\t\t\t\t<MidiNoteOn zone=\"0\" note=\"C4\" "
               "velocity=\"100\"/>\n\t\t\t\t\t</Down>\n"
            << "\t\t\t\t\t<Up>\n\t\t\t\t\t\t<MidiNoteOff zone=\"0\" note=\"C4\" velocity=\"100\"/>\n\t\t\t\t\t</Up>\n"
            << "\t\t\t\t</Function>\n\t\t</Key>\n";
    out << "\t</ComputerInput>\n\t<Controls merge=\"false\">\n";
    for (int control = 0; control < 13; ++control)
        out << "\t\t<Control cell=\"0," << control
            << "\" type=\"vfader\" name=\"VOL\" value=\"100\" min=\"0\" max=\"127\" release=\"-1\" autoSend=\"false\" "
               "size=\"2\">\n\t\t\t<Function midiEvent=\"Controller Change,7\" output=\"-1\" channel=\"-1\" "
               "zone=\"-1\"/>\n\t\t</Control>\n";
    out << "\t</Controls>\n\t<Layers merge=\"false\">\n";
    for (int layer = 0; layer < 4; ++layer) Layers::Layer{}.writeXml(out, 2);
    out << "\t</Layers>\n</Program>\n";
    return out.str();
}

void write(const std::string& path)
{
    std::ofstream file(path, std::ios::binary);
    file << "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n\n<Bank>\n";
    for (int number = 0; number < PROGRAMS; ++number) file << program(number);
    file << "</Bank>\n";
}
}  // namespace BigBank
