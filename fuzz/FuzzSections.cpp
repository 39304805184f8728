// The keys of any program are read; what their section then writes, it reads back.
#include <memory>
#include <sstream>

#include "api/OrvFactory.h"
#include "backend/sections/computerinput/ComputerInputManager.h"
#include "backend/xml/XmlDocument.h"
#include "fuzz/Fuzzing.h"
#include "tests/stage/PrivateFolders.h"
#include "tests/stage/SilentPlayer.h"

using namespace Backend;

namespace
{
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

void tryInput(std::string_view input)
{
    constexpr int UNTIL_WHAT_WAITS_IS_FREED = 1000;
    static auto house = std::make_unique<House>();
    if (static int rounds = 0; ++rounds % UNTIL_WHAT_WAITS_IS_FREED == 0) {
        house.reset();
        house = std::make_unique<House>();
    }
    const std::string text(input);
    forEachElement(parse("<Program>" + text + "</Program>"), [&](const XmlElement& section) {
        if (section.getTagName() == "ComputerInput") checkComputerInput(*house->orv, section);
    });
    checkComputerInput(*house->orv, parse("<ComputerInput>" + text + "</ComputerInput>"));
}
