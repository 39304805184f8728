// Any program is read, section by section; what a section then writes, it reads back.
#include <cstdlib>
#include <memory>
#include <sstream>

#include "api/MidiPlayer.h"
#include "api/OrvFactory.h"
#include "api/OrvIF.h"
#include "backend/sections/computerinput/ComputerInputManager.h"
#include "backend/xml/XmlDocument.h"
#include "tests/stage/PrivateFolders.h"

using namespace Backend;

namespace
{
void require(bool truth)
{
    if (!truth) std::abort();
}

class SilentPlayer final : public MidiEngine::MidiPlayer
{
public:
    void playMidi(const MidiEngine::OrvMidiMessage&) override {}
    void enableMidiInput(int, bool) override {}
    void enableMidiOutput(int, bool) override {}
    ThreadId getThreadId() override { return 0; }
    void pulseSequencer() override {}
    void setTempo(int) override {}
    void setTempoSource(char) override {}
    char getTempoSource() override { return -1; }
};

/// One backend for all, whose threads do not run: what is posted is freed when it goes.
struct House {
    PrivateFolders folders;
    SilentPlayer player;
    std::unique_ptr<OrvIF> orv{OrvFactory::createOrv("Fuzz", player, false)};
};

XmlElement parse(const std::string& text) { return XmlDocument(text, XmlDocument::Source::text).getRoot(); }

void checkComputerInput(OrvIF& orv, const XmlElement& section)
{
    auto& keys = orv.getComputerInputManager();
    const auto write = [&] {
        std::ostringstream out;
        keys.writeSection(out, 0, {}, true);
        return out.str();
    };
    keys.loadSection(section);
    // What is written first holds texts as they came; from then on it stays.
    keys.loadSection(parse(write()));
    const std::string written = write();
    keys.loadSection(parse(written));
    require(write() == written);
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr int UNTIL_WHAT_WAITS_IS_FREED = 1000;
    static auto house = std::make_unique<House>();
    if (static int rounds = 0; ++rounds % UNTIL_WHAT_WAITS_IS_FREED == 0) {
        house.reset();
        house = std::make_unique<House>();
    }
    const std::string text(reinterpret_cast<const char*>(data), size);
    forEachElement(parse("<Program>" + text + "</Program>"), [&](const XmlElement& section) {
        if (section.getTagName() == "ComputerInput") checkComputerInput(*house->orv, section);
    });
    checkComputerInput(*house->orv, parse("<ComputerInput>" + text + "</ComputerInput>"));
    return 0;
}
