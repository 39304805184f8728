#include <gtest/gtest.h>

#include <map>
#include <random>
#include <set>
#include <tuple>
#include <vector>

#include "tests/stage/Stage.h"

using namespace Backend;
using namespace Backend::MidiEngine;

namespace
{
constexpr int INPUTS = 3;
constexpr int OUTPUTS = 3;

/// A performer who plays on while everything changes under the hands: keys of several inputs and notes of the
/// backend's own, thru, default output, ports that come, go and are switched off.
class RestlessPerformer
{
public:
    explicit RestlessPerformer(unsigned seed) : random(seed) {}

    void perform(int steps)
    {
        for (int step = 0; step < steps; ++step) {
            act();
            if (below(3) != 0) stage.rest();
            if (below(3) == 0) stage.slice(below(3));
            listen();
        }
    }

    /// All keys up, two slices.
    void liftTheHands()
    {
        while (!keys.empty()) keyUp(*keys.begin());
        while (!notes.empty()) noteOff(*notes.begin());
        stage.rest();
        stage.playSlices(2);
        listen();
    }

    /// The notes whose last event is a note on.
    std::string sounding() const
    {
        std::string text;
        for (const auto& [where, on] : last)
            if (on)
                text += "output " + std::to_string(std::get<0>(where)) + " channel " +
                        std::to_string(std::get<1>(where)) + " note " + std::to_string(std::get<2>(where)) + "; ";
        return text;
    }

private:
    using Where = std::tuple<int, int, int>;

    int below(unsigned limit) { return static_cast<int>(random() % limit); }

    void act()
    {
        switch (below(16)) {
            case 0:
                stage.setThru(below(2) == 0);
                break;
            case 1:
                stage.commands().postChangeDefaultMidiOutput({SelectType::Kind::specific, below(OUTPUTS)});
                break;
            case 2:
                stage.commands().postEnableMidiInput(below(INPUTS), below(3) != 0);
                break;
            case 3:
                changeOutputs();
                break;
            case 4:
                changeInputs();
                break;
            case 5:
                if (below(10) == 0) stage.commands().postResetOrv();
                break;
            case 6:
            case 7:
            case 8:
            case 9:
                keyDown({below(INPUTS), below(2), 60 + below(4)});
                break;
            case 10:
            case 11:
            case 12:
                if (!keys.empty()) keyUp(*std::next(keys.begin(), below(static_cast<unsigned>(keys.size()))));
                break;
            default:
                if (below(2) == 0)
                    noteOn({below(OUTPUTS + 1) - 1, below(2), 60 + below(4)});
                else if (!notes.empty())
                    noteOff(*std::next(notes.begin(), below(static_cast<unsigned>(notes.size()))));
        }
    }

    // A key of an input is down once; the device reports its release whatever became of the port.
    void keyDown(const Where& key)
    {
        if (!keys.insert(key).second) return;
        const auto& [input, channel, note] = key;
        stage.commands().postProcessMidiInputEvent(
            {MessageType::noteOn, note, 1 + below(127), channel, -1, -1, input, -1});
    }
    void keyUp(const Where key)
    {
        keys.erase(key);
        const auto& [input, channel, note] = key;
        const bool asNoteOn = below(2) == 0;
        stage.commands().postProcessMidiInputEvent({asNoteOn ? MessageType::noteOn : MessageType::noteOff, note,
                                                    asNoteOn ? 0 : 64, channel, -1, -1, input, -1});
    }

    void noteOn(const Where& note)
    {
        notes.insert(note);
        const auto& [output, channel, number] = note;
        stage.commands().postPlayMidi({MessageType::noteOn, number, 100, channel, output, -1, -1, -1});
    }
    void noteOff(const Where note)
    {
        notes.erase(notes.find(note));
        const auto& [output, channel, number] = note;
        stage.commands().postPlayMidi({MessageType::noteOff, number, 64, channel, output, -1, -1, -1});
    }

    void changeOutputs()
    {
        auto ports = stage.outputs({"Out 1", "Out 2", "Out 3"});
        for (auto& port : ports) port.enabled = below(4) != 0;
        if (below(4) == 0) ports.resize(1 + static_cast<std::size_t>(below(OUTPUTS)));
        stage.rest();
        listen();
        stage.commands().postSetMidiOutputPorts(ports);
        stage.rest();
        // A port that closes is silenced by the host itself.
        listen();
        for (auto& [where, on] : last)
            if (!isEnabled(ports, std::get<0>(where))) on = false;
    }

    void changeInputs()
    {
        auto ports = stage.inputs({"In 1", "In 2", "In 3"});
        for (auto& port : ports) {
            port.found = below(4) != 0;
            if (below(6) == 0) port.name = "Another";
        }
        if (below(4) == 0) ports.resize(1 + static_cast<std::size_t>(below(INPUTS)));
        stage.commands().postSetMidiInputPorts(ports);
    }

    void listen()
    {
        for (const auto& event : stage.player.events)
            if (event.isNote())
                last[{event.getOutput(), event.getChannel(), event.getD1()}] = event.isNoteOn() && event.getD2() > 0;
        stage.player.events.clear();
    }

    std::mt19937 random;
    Stage stage;
    std::set<Where> keys;
    std::multiset<Where> notes;
    std::map<Where, bool> last;
};
}  // namespace

TEST(Promise, NoNoteIsLeftSoundingWhateverChanged)
{
    for (unsigned seed = 1; seed <= 40; ++seed) {
        RestlessPerformer performer(seed);
        performer.perform(400);
        performer.liftTheHands();
        ASSERT_EQ(performer.sounding(), "") << "seed " << seed;
    }
}
