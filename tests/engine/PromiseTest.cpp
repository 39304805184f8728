#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <map>
#include <random>
#include <set>
#include <tuple>
#include <vector>

#include "backend/messages/LayerMessageManager.h"
#include "backend/messages/ZoneMessageManager.h"
#include "backend/model/Program.h"
#include "tests/stage/Stage.h"

using namespace Backend;
using namespace Backend::MidiEngine;

namespace
{
constexpr int INPUTS = 3;
constexpr int OUTPUTS = 3;

/// A performer who plays on while everything changes under the hands; what changes is the repertoire's.
class RestlessPerformer
{
public:
    RestlessPerformer(unsigned seed, unsigned longestSlice) : random(seed), sliceLimit(longestSlice) {}
    virtual ~RestlessPerformer() = default;

    void perform(int steps)
    {
        for (int step = 0; step < steps; ++step) {
            act();
            if (below(3) != 0) stage.rest();
            if (below(3) == 0) stage.slice(below(sliceLimit));
            collect();
        }
    }

    /// All keys up, and the slices until the last note has ended.
    virtual void liftTheHands() = 0;

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

    bool hasPlayed() const { return last.size() > 10; }

protected:
    using Where = std::tuple<int, int, int>;

    virtual void act() = 0;

    int below(unsigned limit) { return static_cast<int>(random() % limit); }
    template <class Held>
    auto any(const Held& held)
    {
        return *std::next(held.begin(), below(static_cast<unsigned>(held.size())));
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

    void pressComputerKey(const std::string& key)
    {
        const bool isRepeat = !computerKeys.insert(key).second;
        stage.commands().postKeyDown(Key::fromXmlString(key), isRepeat);
    }
    void releaseComputerKey(const std::string key)
    {
        if (computerKeys.erase(key) > 0) stage.commands().postKeyUp(Key::fromXmlString(key));
    }
    void releaseAll()
    {
        while (!keys.empty()) keyUp(*keys.begin());
        while (!computerKeys.empty()) releaseComputerKey(*computerKeys.begin());
    }

    void collect()
    {
        for (const auto& event : stage.player.events)
            if (event.isNote())
                last[{event.getOutput(), event.getChannel(), event.getD1()}] = event.isNoteOn() && event.getD2() > 0;
        stage.player.events.clear();
    }

    std::mt19937 random;
    unsigned sliceLimit;
    Stage stage;
    std::set<Where> keys;
    std::set<std::string> computerKeys;
    std::map<Where, bool> last;
};

/// Keys of several inputs, notes of the backend's own straight out and through zones and layers, thru, default output,
/// ports that come, go and are switched off, layers that are edited, zones that move, and programs that are loaded.
/// Some presses never get a note off of their own: what they became ends with the next note off of their key.
class LayerEditor final : public RestlessPerformer
{
public:
    explicit LayerEditor(unsigned seed) : RestlessPerformer(seed, 3)
    {
        stage.folders.write("keys.prg", "<ProgramFile><Program><ComputerInput>" + repeatingKey("Q", "E4") +
                                            repeatingKey("W", "F4") +
                                            "</ComputerInput><Layers><Layer/></Layers></Program></ProgramFile>");
        stage.commands().postLoadProgram((stage.folders / "keys.prg").string());
    }

    void liftTheHands() override
    {
        releaseAll();
        while (!notes.empty()) noteOff(*notes.begin());
        stage.rest();
        stage.playSlices(2);
        collect();
    }

private:
    using Own = std::tuple<int, int, int, int>;  // output, channel, zone, note

    void act() override
    {
        switch (below(23)) {
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
                if (!keys.empty()) keyUp(any(keys));
                break;
            case 13:
                changeLayers();
                break;
            case 14:
                moveZones();
                break;
            case 15:
                if (below(4) == 0) loadProgram();
                break;
            case 16:
                if (below(4) == 0) retrigger();
                break;
            case 17:
            case 18:
                pressComputerKey(below(2) == 0 ? "Q" : "W");
                break;
            case 19:
                while (!computerKeys.empty()) releaseComputerKey(*computerKeys.begin());
                break;
            default:
                if (below(2) == 0)
                    noteOn({below(OUTPUTS + 1) - 1, below(3) - 1, below(4) - 1, 60 + below(4)});
                else if (!notes.empty())
                    noteOff(any(notes));
        }
    }

    // Computer keys whose note is sent again while they are held

    static std::string repeatingKey(const std::string& key, const std::string& note)
    {
        return "<Key id='" + key + "'><Function keepSending='true'><Down><MidiNoteOn zone='1' note='" + note +
               "'/></Down><Up><MidiNoteOff zone='1' note='" + note + "'/></Up></Function></Key>";
    }

    void loadProgram()
    {
        while (!computerKeys.empty())
            releaseComputerKey(*computerKeys.begin());  // what another program's keys do is not theirs
        const std::string own = (stage.folders / "keys.prg").string();
        const std::string* const programs[] = {&own, &program, &missing};
        stage.commands().postLoadProgram(*programs[below(3)]);
    }

    /// Every note that is held in a zone once more, in a transposition that was never used before: one note off is all
    /// that each of them gets now.
    void retrigger()
    {
        if (freshTranspose > 60) return;
        stage.rest();
        stage.playSlices(2);
        std::vector<Zones::Zone> zones;
        for (std::int8_t id = 0; id < 3; ++id) zones.push_back({.id = id, .transpose = freshTranspose});
        ++freshTranspose;
        stage.engine().postSetZoneMap(zones);
        const std::set<Own> held(notes.begin(), notes.end());
        for (const Own& note : held) {
            if (std::get<2>(note) < 0) continue;
            notes.erase(note);
            retriggered.erase(note);
            noteOn(note);
            retriggered.insert(note);
        }
        stage.rest();
        stage.playSlices(2);
        collect();
    }

    void noteOn(const Own& note)
    {
        if (retriggered.contains(note)) return;  // it might join presses whose note offs never come
        notes.insert(note);
        const auto& [output, channel, zone, number] = note;
        stage.commands().postPlayMidi({MessageType::noteOn, number, 1 + below(127), channel, output, zone, -1, -1});
    }
    void noteOff(const Own note)
    {
        notes.erase(notes.find(note));
        retriggered.erase(note);
        const auto& [output, channel, zone, number] = note;
        stage.commands().postPlayMidi({MessageType::noteOff, number, below(128), channel, output, zone, -1, -1});
    }

    void changeLayers()
    {
        Layers::LayerList layers;
        for (int count = below(4); count > 0; --count) {
            Layers::Layer layer;
            layer.mono = below(3) == 0;
            layer.mute = below(6) == 0;
            layer.solo = below(8) == 0;
            layer.useNoteStack = below(2) == 0;
            layer.minVelocity = static_cast<std::int8_t>(below(2) * below(100));
            layer.maxNote = Note(60 + below(8));
            layer.zone = static_cast<std::int8_t>(below(4) - 1);
            layer.output = static_cast<std::int8_t>(below(OUTPUTS + 1) - 1);
            layer.channel = static_cast<std::int8_t>(below(3) - 1);
            layer.transpose = {below(4) != 0, below(30)};
            layer.key = Note(below(3) - 1);
            if (below(3) == 0) arpeggiate(layer);
            layers.add(layer);
        }
        stage.orv->getLayerMessageManager().postSetLayers(layers, false);
    }

    /// Of any type, in pulses so few that the performer meets its beats.
    void arpeggiate(Layers::Layer& layer)
    {
        using ArpeggioManagement::ArpeggioSetting;
        layer.arpeggio = {static_cast<ArpeggioSetting::Type>(below(4)), below(8), below(8) - 1};
        if (below(2) == 0) layer.sequenceSetting.setSequenceText("0,7|12,-,-5 V-20,12|100");
    }

    void moveZones()
    {
        if (below(3) != 0) return stage.orv->getZoneMessageManager().postSetZoneTranspose(below(3), below(25) - 12);
        std::vector<Zones::Zone> zones;
        for (int id = 0; id < 3; ++id)
            if (below(3) != 0)
                zones.push_back(
                    {.id = static_cast<Zones::ZoneId>(id), .transpose = static_cast<std::int8_t>(below(25) - 12)});
        stage.engine().postSetZoneMap(zones);
    }

    void changeOutputs()
    {
        auto ports = stage.outputs({"Out 1", "Out 2", "Out 3"});
        for (auto& port : ports) port.enabled = below(4) != 0;
        if (below(4) == 0) ports.resize(1 + static_cast<std::size_t>(below(OUTPUTS)));
        stage.rest();
        collect();
        stage.commands().postSetMidiOutputPorts(ports);
        stage.rest();
        // A port that closes is silenced by the host itself.
        collect();
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

    const std::string program{ORVANE_EXAMPLES "/demonstration.prg"};
    const std::string missing{"missing.prg"};
    std::multiset<Own> notes;
    std::set<Own> retriggered;
    std::int8_t freshTranspose = 13;
};

/// MIDI keyboards and the computer's keys while programs, transpositions, the default output, thru and the inputs
/// change.
class ProgramChanger final : public RestlessPerformer
{
public:
    explicit ProgramChanger(unsigned seed) : RestlessPerformer(seed, 12)
    {
        stage.commands().postLoadBank(ORVANE_RESTLESS_BANK);
        stage.rest();
    }

    /// In a program that holds no note by itself, with time for the last beat of every arpeggio.
    void liftTheHands() override
    {
        stage.rest();
        changeProgram(1 + below(3));
        for (int step = 0; step < 60; ++step) {
            if (below(3) == 0)
                changeRoutes();
            else
                playKeys();
            if (below(3) != 0) stage.rest();
            stage.slice(below(6));
        }
        releaseComputerKey("D");  // it may call up the first program
        stage.rest();
        if (stage.orv->getProgram().number == 0) changeProgram(2);
        releaseAll();
        for (int i = 0; i < 20; ++i) {
            stage.rest();
            stage.slice(100);
        }
        collect();
    }

private:
    void act() override
    {
        if (below(20) == 0) return changeLayers();
        return below(3) == 0 ? changeRoutes() : playKeys();
    }

    /// All of it ends what sounds.
    void changeLayers()
    {
        const std::string any = " type='" + std::to_string(below(3)) + "'";
        switch (below(6)) {
            case 0:
                return execute("<ChangeLayerTranspose" + any + " value='+3'/>");
            case 1:
                return execute("<ChangeLayerMono" + any + "/>");
            case 2:
                return execute("<ChangeLayerMute" + any + "/>");
            case 3:
                return turn(20);
            default:
                return changeProgram(below(4));
        }
    }

    /// None of it may part a note off from its note on.
    void changeRoutes()
    {
        switch (below(6)) {
            case 0:
                return stage.commands().postChangeMidiThru({}, false);
            case 1:
                return stage.commands().postChangeDefaultMidiOutput({SelectType::Kind::specific, below(3)});
            case 2:
                return stage.commands().postEnableMidiInput(below(INPUTS), below(3) != 0);
            case 3:
                return execute("<ChangeZoneTranspose type='1' value='" + std::to_string(below(25) - 12) + "'/>");
            case 4:
                return execute("<ChangeOscPlaying type='all'/>");
            default:
                return turn(21 + below(2));
        }
    }

    void turn(int controller)
    {
        stage.commands().postProcessMidiInputEvent(
            {MessageType::controllerChange, controller, below(24), 0, -1, -1, below(INPUTS), -1});
    }

    void playKeys()
    {
        switch (below(5)) {
            case 0:
            case 1:
                return keyDown({below(INPUTS), below(2), 60 + below(5)});
            case 2:
                if (!keys.empty()) keyUp(any(keys));
                return;
            case 3:
                return pressComputerKey(std::string(1, "ABCABCABCABCDEF"[below(15)]));
            default:
                if (!computerKeys.empty()) releaseComputerKey(any(computerKeys));
        }
    }

    void changeProgram(int number) { stage.commands().postChangeProgram({SelectType::Kind::specific, number}); }
    void execute(const std::string& function) { stage.commands().postExecuteFunction(function); }
};

/// A number from the environment, for the runs of bench/full_size.sh.
unsigned fromEnvironment(const char* name, unsigned otherwise)
{
    const char* text = std::getenv(name);
    return text != nullptr ? static_cast<unsigned>(std::atoi(text)) : otherwise;
}

template <class Performer>
void expectSilenceAfter(unsigned performers)
{
    constexpr int STEPS = 400;
    const unsigned first = fromEnvironment("ORVANE_FIRST_PERFORMER", 1);
    const unsigned end = first + fromEnvironment("ORVANE_PERFORMERS", performers);
    for (unsigned seed = first; seed < end; ++seed) {
        Performer performer(seed);
        performer.perform(STEPS);
        performer.liftTheHands();
        ASSERT_EQ(performer.sounding(), "") << "seed " << seed;
        EXPECT_TRUE(performer.hasPlayed()) << "seed " << seed;
    }
    std::printf("%u performers of %d steps, no note left\n", end - first, STEPS);
}
}  // namespace

TEST(Promise, NoNoteIsLeftSoundingWhateverChanged) { expectSilenceAfter<LayerEditor>(60); }

TEST(Promise, NoNoteIsLeftSoundingWhateverProgramsCameAndWent) { expectSilenceAfter<ProgramChanger>(40); }

TEST(Promise, AKeyHeldThroughAResetMixesUpNoLaterPressOfItsRoute)
{
    Stage stage;
    Layers::Layer layer;
    layer.minVelocity = 20;
    stage.setLayers({layer});
    const auto press = [&](int velocity, int transpose) {
        stage.engine().postSetZoneMap({{.id = 1, .transpose = static_cast<std::int8_t>(transpose)}});
        stage.play({MessageType::noteOn, 60, velocity, -1, -1, 1, -1, -1});
    };
    press(100, 12);
    EXPECT_EQ(stage.played(), "C5 on");
    stage.engine().sendReset();
    press(100, 0);
    press(10, 0);
    EXPECT_EQ(stage.played(), "C5 off, C4 on") << "the last was too soft";
    for (int release = 0; release < 3; ++release) stage.play({MessageType::noteOff, 60, 64, -1, -1, 1, -1, -1});
    EXPECT_EQ(stage.played(), "C4 off");
}
