#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <map>
#include <random>
#include <set>
#include <tuple>

#include "backend/model/Program.h"
#include "tests/stage/Stage.h"
#include "tests/stage/TemporaryFolder.h"

using namespace Backend;
using namespace Backend::MidiEngine;

namespace
{
constexpr int INPUTS = 3;

/// The inputs are the same in every program: a release means what its press meant.
const std::string SAME_INPUTS = R"(
    <ComputerInput useKeyUpMod="false">
      <Key id="A"><Function><Down><MidiNoteOn note="C4"/></Down><Up><MidiNoteOff note="C4"/></Up></Function></Key>
      <Key id="B"><Function><Down><MidiNoteOn zone="1" note="D4"/></Down>
                            <Up><MidiNoteOff zone="1" note="D4"/></Up></Function></Key>
      <Key id="C"><Function><Down><MidiNoteOn output="2" channel="3" note="C4"/></Down>
                            <Up><MidiNoteOff output="2" channel="3" note="C4"/></Up></Function>
                  <Function><Down><MidiNoteOn channel="1" note="C#4"/></Down>
                            <Up><MidiNoteOff channel="1" note="C#4"/></Up></Function></Key>
      <Key id="D"><Function><Down><ChangeProgram type="up"/></Down><Up><ChangeProgram type="0"/></Up></Function></Key>
      <Key id="E"><Function keepSending="true"><Down><ChangeZoneTranspose type="1" value="+5"/></Down>
                            <Up><ChangeZoneTranspose type="1" value="-3"/></Up></Function></Key>
      <Key id="F"><Function><Down><ChangeOscPlaying type="all"/></Down><Up><ChangeMidiThru/></Up></Function></Key>
    </ComputerInput>
    <MidiInput>
      <MidiEvent midiEvent="Note On,60"><Translation><Unchanged zone="1"/></Translation></MidiEvent>
      <MidiEvent midiEvent="Note Off,60"><Translation><Unchanged zone="1"/></Translation></MidiEvent>
      <MidiEvent midiEvent="Note On,61"><Translation><MidiNoteOn output="1" channel="2" D1="D1 +12" D2="D2"/></Translation>
                                        <Translation><Unchanged/></Translation></MidiEvent>
      <MidiEvent midiEvent="Note Off,61"><Translation><MidiNoteOff output="1" channel="2" D1="D1 +12" D2="D2"/></Translation>
                                         <Translation><Unchanged/></Translation></MidiEvent>
      <MidiEvent midiEvent="Controller Change,20"><Translation><ChangeLayerTranspose type="0" value="D2 -12"/></Translation></MidiEvent>
      <MidiEvent midiEvent="Controller Change,21"><Translation><ChangeZoneTranspose type="1" value="D2 -12"/></Translation></MidiEvent>
      <MidiEvent midiEvent="Controller Change,22"><Translation><ChangeControl type="0,0" value="D2"/></Translation></MidiEvent>
    </MidiInput>)";

const std::string OSCILLATORS = R"(
    <Oscillators><Oscillator type="saw" speed="97" detail="2" stopValue="64" midiMessage="Controller Change,20"/>
      <Oscillator type="tri" speed="60" max="16383" midiMessage="Pitch Bend" output="1" channel="1"/></Oscillators>)";

const std::string CONTROLS = R"(
    <Controls><Control cell="0,0" type="vfader" autoSend="true"><Function midiEvent="Controller Change,20"/></Control></Controls>)";

/// What the programs differ in. The first holds notes of released keys, the others none.
const std::array<std::string, 4> DIFFERENCES{
    R"(<Layers><Layer toggle="type1"/><Layer toggle="type2" mono="true" channel="1" zone="1"/>
      <Layer output="1" channel="2"/></Layers>)",
    OSCILLATORS +
        R"(<Layers><Layer mono="true" transpose="+7"/><Layer mono="true" useNoteStack="false" channel="1" output="2"/>
      <Layer zone="1" channel="2" key="D-1" transpose="+2" minVelocity="20"/></Layers><Zones><Zone id="1" transpose="12"/></Zones>)",
    R"(<Layers><Layer><Arpeggio><UpArpeggio beat="7" length="5"/></Arpeggio>
        <SequenceSetting><Sequence>0,12 V20,-,-5|7 V-20</Sequence></SequenceSetting></Layer>
      <Layer channel="1"><Arpeggio><ChordArpeggio beat="5" length="20"/></Arpeggio>
        <SequenceSetting><Sequence>0,7|12</Sequence></SequenceSetting></Layer></Layers>)",
    OSCILLATORS + CONTROLS + R"(<Layers>
      <Layer mono="true"><Arpeggio><DownArpeggio beat="3" length="9"/></Arpeggio></Layer>
      <Layer channel="1" output="1" zone="1"><Arpeggio><UpDownArpeggio beat="4" length="4"/></Arpeggio>
        <SequenceSetting><Sequence>-,0|100,3</Sequence></SequenceSetting></Layer>
      <Layer channel="2" velocity="-30"/></Layers><Zones><Zone id="1" transpose="-7"/></Zones>)"};

std::string bankText()
{
    std::string text = "<Bank>";
    for (const std::string& own : DIFFERENCES) text += "<Program>" + SAME_INPUTS + own + "</Program>";
    return text + "</Bank>";
}

/// A performer who plays MIDI keyboards and the computer's keys while programs, transpositions, the default output,
/// thru and the inputs change.
class RestlessProgrammer
{
public:
    explicit RestlessProgrammer(unsigned seed) : random(seed)
    {
        folder.write("restless.bnk", bankText());
        stage.commands().postLoadBank((folder / "restless.bnk").string());
        stage.rest();
    }

    void perform(int steps)
    {
        for (int step = 0; step < steps; ++step) {
            act();
            if (below(3) != 0) stage.rest();
            if (below(3) == 0) stage.slice(below(12));
            listen();
        }
    }

    /// All keys up, in a program that holds no note by itself, and time for the last beat of every arpeggio.
    void liftTheHands()
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
        releaseComputerKey('D');  // it may call up the first program
        stage.rest();
        if (stage.orv->getProgram().number == 0) changeProgram(2);
        while (!keys.empty()) keyUp(*keys.begin());
        while (!computerKeys.empty()) releaseComputerKey(*computerKeys.begin());
        for (int i = 0; i < 20; ++i) {
            stage.rest();
            stage.slice(100);
        }
        listen();
    }

    bool hasPlayed() const { return last.size() > 10; }

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
        const auto any = [&](const auto& held) { return *std::next(held.begin(), below(unsigned(held.size()))); };
        switch (below(5)) {
            case 0:
            case 1:
                return keyDown({below(INPUTS), below(2), 60 + below(5)});
            case 2:
                if (!keys.empty()) keyUp(any(keys));
                return;
            case 3:
                return pressComputerKey("ABCABCABCABCDEF"[below(15)]);
            default:
                if (!computerKeys.empty()) releaseComputerKey(any(computerKeys));
        }
    }

    void changeProgram(int number) { stage.commands().postChangeProgram({SelectType::Kind::specific, number}); }
    void execute(const std::string& function) { stage.commands().postExecuteFunction(function); }

    // The device reports a release whatever became of its port.
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
        stage.commands().postProcessMidiInputEvent({MessageType::noteOff, note, 64, channel, -1, -1, input, -1});
    }
    void pressComputerKey(char key)
    {
        const bool isRepeat = !computerKeys.insert(key).second;
        stage.commands().postKeyDown(Key::fromXmlString(std::string(1, key)), isRepeat);
    }
    void releaseComputerKey(char key)
    {
        if (computerKeys.erase(key) > 0) stage.commands().postKeyUp(Key::fromXmlString(std::string(1, key)));
    }

    void listen()
    {
        for (const auto& event : stage.player.events)
            if (event.isNote())
                last[{event.getOutput(), event.getChannel(), event.getD1()}] = event.isNoteOn() && event.getD2() > 0;
        stage.player.events.clear();
    }

    std::mt19937 random;
    TemporaryFolder folder;
    Stage stage;
    std::set<Where> keys;
    std::set<char> computerKeys;
    std::map<Where, bool> last;
};
}  // namespace

TEST(Promise, NoNoteIsLeftSoundingWhateverProgramsCameAndWent)
{
    const char* wanted = std::getenv("ORVANE_PERFORMERS");  // more of them for a long night
    const unsigned performers = wanted != nullptr ? static_cast<unsigned>(std::atoi(wanted)) : 40;
    for (unsigned seed = 1; seed <= performers; ++seed) {
        RestlessProgrammer performer(seed);
        performer.perform(400);
        performer.liftTheHands();
        ASSERT_EQ(performer.sounding(), "") << "seed " << seed;
        EXPECT_TRUE(performer.hasPlayed()) << "seed " << seed;
    }
}

TEST(Promise, AKeyHeldThroughAResetMixesUpNoLaterPressOfItsRoad)
{
    Stage stage;
    Layers::Layer layer;
    layer.minVelocity = 20;
    stage.setLayers({layer});
    const auto strike = [&](int velocity, int transpose) {
        stage.engine().postSetZoneMap({{.id = 1, .transpose = static_cast<std::int8_t>(transpose)}});
        stage.play({MessageType::noteOn, 60, velocity, -1, -1, 1, -1, -1});
    };
    strike(100, 12);
    EXPECT_EQ(stage.played(), "C5 on");
    stage.engine().sendReset();
    strike(100, 0);
    strike(10, 0);
    EXPECT_EQ(stage.played(), "C5 off, C4 on") << "the last was too soft";
    for (int release = 0; release < 3; ++release) stage.play({MessageType::noteOff, 60, 64, -1, -1, 1, -1, -1});
    EXPECT_EQ(stage.played(), "C4 off");
}
