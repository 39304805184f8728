#include <cstdio>
#include <cstdlib>
#include <map>
#include <random>
#include <set>
#include <tuple>

#include "backend/messages/LayerMessageManager.h"
#include "backend/messages/SettingMessages.h"
#include "backend/messages/ZoneMessageManager.h"
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
    /// Every second one lets held notes ring on.
    RestlessPerformer(unsigned seed, unsigned longestSlice) : random(seed), sliceLimit(longestSlice)
    {
        stage.commands().postSetting(SETTING<Settings::KEEP_NOTES>(keepsNotes = seed % 2 == 0));
    }
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
        return joined(last, [](const auto& each) {
            const auto& [output, channel, note] = each.first;
            return !each.second ? ""
                                : "output " + std::to_string(output) + " channel " + std::to_string(channel) +
                                      " note " + std::to_string(note) + ";";
        });
    }

    bool hasPlayed() const { return last.size() > 10; }

protected:
    using Where = std::tuple<int, int, int>;
    struct Act {
        unsigned weight;
        std::function<void()> run;
    };

    virtual void act() = 0;

    int below(unsigned limit) { return static_cast<int>(random() % limit); }
    /// One of them, each as often as its weight says.
    void oneOf(const std::vector<Act>& acts)
    {
        unsigned total = 0;
        for (const Act& each : acts) total += each.weight;
        int place = below(total);
        const auto chosen =
            std::ranges::find_if(acts, [&](const Act& each) { return (place -= static_cast<int>(each.weight)) < 0; });
        chosen->run();
    }
    template <class Held>
    auto any(const Held& held)
    {
        return *std::next(held.begin(), below(static_cast<unsigned>(held.size())));
    }

    // The events of input 0 take the direct way, those of input 1 the way through the backend, those of input 2 either.
    void arrive(const OrvMidiMessage& event)
    {
        const bool isPosted = event.getInput() == 1 || (event.getInput() == 2 && below(2) == 0);
        if (isPosted)
            stage.orv->deferMidiInputEvent(event.getInput());
        else if (stage.orv->playMidiInputEvent(event))
            return;
        stage.commands().postProcessMidiInputEvent(event);
    }

    // A key of an input is down once; the device reports its release whatever became of the port.
    void keyDown(const Where& key)
    {
        if (!keys.insert(key).second) return;
        const auto& [input, channel, note] = key;
        arrive(noteOn(note, 1 + below(127)).channel(channel).input(input));
    }
    void keyUp(const Where key)
    {
        keys.erase(key);
        const auto& [input, channel, note] = key;
        const TestEvent event = below(2) == 0 ? noteOn(note, 0) : noteOff(note);
        arrive(event.channel(channel).input(input));
    }
    void anyKeyUp()
    {
        if (!keys.empty()) keyUp(any(keys));
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
    void releaseComputerKeys()
    {
        while (!computerKeys.empty()) releaseComputerKey(*computerKeys.begin());
    }
    void releaseAll()
    {
        while (!keys.empty()) keyUp(*keys.begin());
        releaseComputerKeys();
    }

    void changeDefaultOutput()
    {
        stage.commands().postChangeDefaultMidiOutput({SelectType::Kind::specific, below(OUTPUTS)});
    }
    void switchAnInput()
    {
        const int input = below(INPUTS);
        stage.commands().postEnableMidiInput(input, below(3) != 0);
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
    bool keepsNotes = false;
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
        // Computer keys whose note is sent again while they are held
        const auto repeatingKey = [](const std::string& key, const std::string& note) {
            return "<Key id='" + key + "'><Function keepSending='true'><Down><MidiNoteOn zone='1' note='" + note +
                   "'/></Down><Up><MidiNoteOff zone='1' note='" + note + "'/></Up></Function></Key>";
        };
        own = stage.loadFile("keys.prg", "<ProgramFile><Program><ComputerInput>" + repeatingKey("Q", "E4") +
                                             repeatingKey("W", "F4") +
                                             "</ComputerInput><Layers><Layer/></Layers></Program></ProgramFile>");
    }

    void liftTheHands() override
    {
        releaseAll();
        while (!notes.empty()) endNote(*notes.begin());
        playAll();
    }

private:
    using Own = std::tuple<int, int, int, int>;  // output, channel, zone, note

    void act() override
    {
        oneOf({{1, [&] { stage.setThru(below(2) == 0); }},
               {1, [&] { changeDefaultOutput(); }},
               {1, [&] { switchAnInput(); }},
               {1, [&] { changeOutputs(); }},
               {1, [&] { changeInputs(); }},
               {1, [&] { below(10) == 0 ? stage.commands().postResetOrv() : void(); }},
               {4,
                [&] {
                    keyDown({below(INPUTS), below(2), 60 + below(4)});
                }},
               {3, [&] { anyKeyUp(); }},
               {1, [&] { changeLayers(); }},
               {1, [&] { moveZones(); }},
               {1, [&] { below(4) == 0 ? loadProgram() : void(); }},
               {1, [&] { below(4) == 0 ? retrigger() : void(); }},
               {2, [&] { pressComputerKey(below(2) == 0 ? "Q" : "W"); }},
               {1, [&] { releaseComputerKeys(); }},
               {3, [&] {
                    if (below(2) == 0)
                        startNote({below(OUTPUTS + 1) - 1, below(3) - 1, below(4) - 1, 60 + below(4)});
                    else if (!notes.empty())
                        endNote(any(notes));
                }}});
    }

    void playAll()
    {
        stage.rest();
        stage.playSlices(2);
        collect();
    }

    void loadProgram()
    {
        if (!keepsNotes) releaseComputerKeys();  // what another program's keys do is not theirs
        const std::string programs[] = {own, ORVANE_EXAMPLES "/demonstration.prg", "missing.prg"};
        stage.commands().postLoadProgram(programs[below(3)]);
    }

    /// Every note that is held in a zone once more, in a transposition that was never used before: one note off is all
    /// that each of them gets now.
    void retrigger()
    {
        if (freshTranspose > 60) return;
        playAll();
        std::vector<Zones::Zone> zones;
        for (std::int8_t id = 0; id < 3; ++id) zones.push_back({.id = id, .transpose = freshTranspose});
        ++freshTranspose;
        stage.engine().postSetZoneMap(zones);
        const std::set<Own> held(notes.begin(), notes.end());
        for (const Own& note : held) {
            if (std::get<2>(note) < 0) continue;
            notes.erase(note);
            retriggered.erase(note);
            startNote(note);
            retriggered.insert(note);
        }
        playAll();
    }

    static TestEvent placed(const TestEvent& event, const Own& note)
    {
        const auto& [output, channel, zone, number] = note;
        return event.output(output).channel(channel).zone(zone);
    }
    void startNote(const Own& note)
    {
        if (retriggered.contains(note)) return;  // it might join presses whose note offs never come
        notes.insert(note);
        stage.commands().postPlayMidi(placed(noteOn(std::get<3>(note), 1 + below(127)), note));
    }
    void endNote(const Own note)
    {
        notes.erase(notes.find(note));
        retriggered.erase(note);
        stage.commands().postPlayMidi(placed(noteOff(std::get<3>(note), below(128)), note));
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

    /// Of any type, in pulses so few that the performer plays across its beats.
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
        for (std::int8_t id = 0; id < 3; ++id)
            if (below(3) != 0) zones.push_back({.id = id, .transpose = static_cast<std::int8_t>(below(25) - 12)});
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

    std::string own;  // the program with the computer keys
    std::multiset<Own> notes;
    std::set<Own> retriggered;
    std::int8_t freshTranspose = 13;
};

/// MIDI keyboards and the computer's keys while programs, transpositions, the default output, thru and the inputs
/// change.
class ProgramChanger final : public RestlessPerformer
{
public:
    explicit ProgramChanger(unsigned seed) : RestlessPerformer(seed, 12) { stage.load(ORVANE_RESTLESS_BANK); }

    /// In a program that holds no note by itself, with time for the last beat of every arpeggio.
    void liftTheHands() override
    {
        stage.rest();
        changeProgram(1 + below(3));
        for (int step = 0; step < 60; ++step) {
            changeRoutesOrPlay();
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
    void act() override { below(20) == 0 ? changeLayers() : changeRoutesOrPlay(); }

    void changeRoutesOrPlay() { below(3) == 0 ? changeRoutes() : playKeys(); }

    /// All of it ends what sounds.
    void changeLayers()
    {
        const std::string any = " type='" + std::to_string(below(3)) + "'";
        oneOf({{1, [&] { execute("<ChangeLayerTranspose" + any + " value='+3'/>"); }},
               {1, [&] { execute("<ChangeLayerMono" + any + "/>"); }},
               {1, [&] { execute("<ChangeLayerMute" + any + "/>"); }},
               {1, [&] { turn(20); }},
               {2, [&] { changeProgram(below(4)); }}});
    }

    /// None of it may separate a note off from its note on.
    void changeRoutes()
    {
        oneOf({{1, [&] { stage.commands().postChangeMidiThru({}, false); }},
               {1, [&] { changeDefaultOutput(); }},
               {1, [&] { switchAnInput(); }},
               {1, [&] { execute("<ChangeZoneTranspose type='1' value='" + std::to_string(below(25) - 12) + "'/>"); }},
               {1, [&] { execute("<ChangeOscPlaying type='all'/>"); }},
               {1, [&] { turn(21 + below(2)); }}});
    }

    void turn(int number) { arrive(controller(number, below(24)).channel(0).input(below(INPUTS))); }

    void playKeys()
    {
        oneOf({{2,
                [&] {
                    keyDown({below(INPUTS), below(2), 60 + below(5)});
                }},
               {1, [&] { anyKeyUp(); }},
               {1, [&] { pressComputerKey(std::string(1, "ABCABCABCABCDEF"[below(15)])); }},
               {1, [&] { computerKeys.empty() ? void() : releaseComputerKey(any(computerKeys)); }}});
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
    unsigned silent = 0;  // few: a performer may happen to switch everything off
    for (unsigned seed = first; seed < end; ++seed) {
        Performer performer(seed);
        performer.perform(STEPS);
        performer.liftTheHands();
        ASSERT_EQ(performer.sounding(), "") << "seed " << seed;
        silent += performer.hasPlayed() ? 0 : 1;
    }
    EXPECT_LE(silent, 1 + (end - first) / 100);
    std::printf("%u performers of %d steps, no note left\n", end - first, STEPS);
}
}  // namespace

TEST(Promise, NoNoteIsLeftSoundingWhateverChanged) { expectSilenceAfter<LayerEditor>(60); }

TEST(Promise, NoNoteIsLeftSoundingWhateverProgramsCameAndWent) { expectSilenceAfter<ProgramChanger>(40); }
