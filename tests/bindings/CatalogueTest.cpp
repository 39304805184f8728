// Every function as it stands in files and in pickers.

#include <gtest/gtest.h>

#include <set>
#include <sstream>

#include "backend/bindings/functions/FunctionEnumerator.h"
#include "backend/bindings/functions/FunctionFactories.h"
#include "backend/bindings/functions/Functions.h"
#include "backend/bindings/functions/HelpTexts.h"
#include "backend/xml/XmlDocument.h"
#include "tests/stage/Stage.h"

using namespace Backend;
using namespace Backend::FunctionManagement;

namespace
{
struct Row {
    const char* displayName;
    const char* typeName;
    const char* fromFile;           // the attributes of an element that had none
    const char* picked = fromFile;  // and of a function picked by its name
};

constexpr Row ROWS[] = {
    {"Midi Note On", "MidiNoteOn", R"( zone="-1" output="-1" channel="-1" note="" velocity="100")",
     R"( zone="-1" output="-1" channel="-1" note="C4" velocity="100")"},
    {"Midi Note Off", "MidiNoteOff", R"( zone="-1" output="-1" channel="-1" note="" velocity="100")",
     R"( zone="-1" output="-1" channel="-1" note="C4" velocity="100")"},
    {"Midi Key Pressure", "MidiKeyPressure", R"( zone="-1" output="-1" channel="-1" key="0" pressure="0")",
     R"( zone="-1" output="-1" channel="-1" key="60" pressure="0")"},
    {"Midi Controller Change", "MidiControllerChange",
     R"( zone="-1" output="-1" channel="-1" controller="0" value="100")",
     R"( zone="-1" output="-1" channel="-1" controller="0" value="0")"},
    {"Midi Program Change", "ProgramChange", R"( zone="-1" output="-1" channel="-1" program="0")"},
    {"Midi Channel Pressure", "MidiChannelPressure", R"( zone="-1" output="-1" channel="-1" pressure="0")"},
    {"Midi Pitch Bend", "MidiPitchBend", R"( zone="-1" output="-1" channel="-1" value="0")",
     R"( zone="-1" output="-1" channel="-1" value="8192")"},
    {"Midi Song Position", "MidiSongPosition", R"( zone="-1" output="-1" value="0")"},
    {"Midi Song Select", "MidiSongSelect", R"( zone="-1" output="-1" songNumber="0")"},
    {"Midi Bus Select", "MidiBusSelect", R"( zone="-1" output="-1" busNumber="0")"},
    {"Midi Tune Request", "MidiTuneRequest", R"( zone="-1" output="-1")"},
    {"Midi Timing Tick", "MidiTimingTick", R"( zone="-1" output="-1")"},
    {"Midi Start Song", "MidiStartSong", R"( zone="-1" output="-1")"},
    {"Midi Continue Song", "MidiContinueSong", R"( zone="-1" output="-1")"},
    {"Midi Stop Song", "MidiStopSong", R"( zone="-1" output="-1")"},
    {"Midi Active Sensing", "MidiActiveSensing", R"( zone="-1" output="-1")"},
    {"Midi System Reset", "MidiSystemReset", R"( zone="-1" output="-1")"},
    {"Show Main Screen", "ShowSystem", R"( type="toggle")"},
    {"Show Help", "ShowHelp", R"( type="toggle")"},
    {"Show Display", "ShowDisplay", R"( type="toggle")"},
    {"Show Oscillator", "ShowOscillator", R"( type="toggle")"},
    {"Show Joystick Input", "ShowJoystick", R"( type="toggle")"},
    {"Show Midi Input", "ShowMidiInput", R"( type="toggle")"},
    {"Show Computer Input", "ShowComputerInput", R"( type="toggle")"},
    {"Show Controls", "ShowControl", R"( type="toggle")"},
    {"Show Output", "ShowOutput", R"( type="toggle")"},
    {"Show CC", "ShowCC", R"( type="toggle")"},
    {"Show Zone", "ShowZone", R"( type="toggle")"},
    {"Show Layer", "ShowLayer", R"( type="toggle")"},
    {"Show Save Dialog", "ShowSaveDialog", R"()"},
    {"Move Window", "MoveWindow", R"( x="" y="")"},
    {"Load Oscillator Preset", "LoadOscillatorPreset", R"( preset="")"},
    {"Load Joystick Input Preset", "LoadJoystickInputPreset", R"( preset="")"},
    {"Load Midi Input Preset", "LoadMidiInputPreset", R"( preset="")"},
    {"Load Computer Input Preset", "LoadComputerInputPreset", R"( preset="")"},
    {"Load Control Preset", "LoadControlPreset", R"( preset="")"},
    {"Load Layer Preset", "LoadLayerPreset", R"( preset="")"},
    {"Change Program", "ChangeProgram", R"( type="up")"},
    {"Show Program Menu", "ShowProgramMenu", R"()"},
    {"Change Default Midi Output", "ChangeDefaultMidiOutput", R"( type="up")"},
    {"Show Default Midi Output Menu", "ShowDefaultMidiOutputMenu", R"()"},
    {"Change Midi Thru", "ChangeMidiThru", R"( type="toggle")"},
    {"Change Global Keyboard", "ChangeGlobalKeyboard", R"( type="toggle")"},
    {"Change Tempo", "ChangeTempo", R"( value="")"},
    {"Reset ORV", "ResetOrv", R"()"},
    {"Data Select Oscillator", "DataSelectOsc", R"( type="up")"},
    {"Start/Stop Oscillator", "ChangeOscPlaying", R"( type="selected" value="toggle")"},
    {"Change Oscillator Speed", "ChangeOscSpeed", R"( type="selected" value="")"},
    {"Select Control", "SelectControl", R"( type="right")"},
    {"Set Control Focus", "SetWidgetFocus", R"( type="right")"},
    {"Change Control", "ChangeControl", R"( type="selected" value="")"},
    {"Send Control Data", "SendControlData", R"( type="selected")"},
    {"Select Zone", "SelectZone", R"( type="up")"},
    {"Change Zone Transpose", "ChangeZoneTranspose", R"( type="selected" value="")"},
    {"Data Select Layer", "DataSelectLayer", R"( type="up")"},
    {"Edit Select Layer", "EditSelectLayer", R"( type="up")"},
    {"Change Layer Transpose", "ChangeLayerTranspose", R"( type="selected" value="")"},
    {"Change Layer Velocity", "ChangeLayerVelocity", R"( type="selected" value="")"},
    {"Change Layer Mute", "ChangeLayerMute", R"( type="selected" value="toggle")"},
    {"Change Layer Mono", "ChangeLayerMono", R"( type="selected" value="toggle")"},
    {"Change Layer Solo", "ChangeLayerSolo", R"( type="selected" value="toggle")"},
    {"Change Layer Note Toggle", "ChangeLayerNoteToggle", R"( type="selected" value="off")"},
};

constexpr const char* NOT_OFFERED = "MidiEndOfSysEx";

std::string print(const Function& function)
{
    std::ostringstream out;
    function.writeXml(out, 1);
    return out.str();
}

std::string element(const std::string& typeName, const std::string& attributes)
{
    return "\t<" + typeName + attributes + "/>\n";
}

std::unique_ptr<Function> read(const std::string& text, OrvIF& orv)
{
    return createFunctionFromXml(XmlDocument(text, XmlDocument::Source::text).getRoot(), orv);
}

class Picker final : public FunctionEnumerator
{
public:
    void addFunction(const FunctionInfo& function) override { offered.push_back(function); }
    std::vector<FunctionInfo> offered;
};
}  // namespace

TEST(FunctionCatalogue, OffersItsFunctionsInOrderUnderTheirNames)
{
    Picker picker;
    enumerateFunctions(picker);
    ASSERT_EQ(picker.offered.size(), std::size(ROWS) + 1);
    EXPECT_EQ(picker.offered[0].displayName, "None");
    EXPECT_EQ(picker.offered[0].typeName, NO_FUNCTION);
    for (std::size_t i = 0; i < std::size(ROWS); ++i) {
        EXPECT_EQ(picker.offered[i + 1].displayName, ROWS[i].displayName);
        EXPECT_EQ(picker.offered[i + 1].typeName, ROWS[i].typeName);
    }
}

TEST(FunctionCatalogue, StartsFromOneSetOfDefaultsInFilesAndFromAnotherInPickers)
{
    Stage stage;
    for (const Row& row : ROWS) {
        const auto fromFile = read("<" + std::string(row.typeName) + "/>", *stage.orv);
        const auto picked = createFunction(row.typeName, *stage.orv);
        ASSERT_TRUE(fromFile && picked) << row.typeName;
        EXPECT_EQ(print(*fromFile), element(row.typeName, row.fromFile));
        EXPECT_EQ(print(*picked), element(row.typeName, row.picked));
        EXPECT_EQ(fromFile->getType(), row.typeName);
    }
    EXPECT_TRUE(createFunction(NOT_OFFERED, *stage.orv));
    for (const char* unknown : {"Nonsense", "NoFunction", "", "midiNoteOn", "MidiProgramChange"}) {
        EXPECT_FALSE(createFunction(unknown, *stage.orv)) << unknown;
        EXPECT_FALSE(read("<" + std::string(unknown) + "/>", *stage.orv)) << unknown;
    }
}

/// The same for every class, whatever its family.
template <class Type>
class EveryFunction : public testing::Test
{
};

template <class List>
struct GTestTypes;
template <class... Types>
struct GTestTypes<TypeList<Types...>> {
    using Type = testing::Types<Types...>;
};
TYPED_TEST_SUITE(EveryFunction, GTestTypes<AllFunctions>::Type);

TYPED_TEST(EveryFunction, ReadsBackWhatItWritesSurvivesACloneAndDiffersByEachParameter)
{
    Stage stage;
    const std::string type(TypeParam::info.typeName);
    const TypeParam plain(*stage.orv);
    EXPECT_TRUE(plain.equals(plain));
    EXPECT_TRUE(plain.clone()->equals(plain));
    EXPECT_FALSE(plain.equals(*createFunction(type == "ResetOrv" ? "ShowHelp" : "ResetOrv", *stage.orv)));
    EXPECT_FALSE(helpText(plain.getHelpId()).empty());

    const std::string printed = print(plain);
    for (auto quote = printed.find("=\""); quote != std::string::npos; quote = printed.find("=\"", quote + 1)) {
        const auto end = printed.find('"', quote + 2);
        bool matters = false;
        for (const char* other : {"off", "+5", "3,4", "type2", "D5"}) {
            const std::string text = printed.substr(0, quote + 2) + other + printed.substr(end);
            const auto changed = read(text, *stage.orv);
            matters = matters || !changed->equals(plain);
            EXPECT_TRUE(read(print(*changed), *stage.orv)->equals(*changed)) << text;
            EXPECT_TRUE(changed->clone()->equals(*changed)) << text;
        }
        EXPECT_TRUE(matters) << printed.substr(0, end);
    }
}

TEST(FunctionCatalogue, ExplainsEveryFunctionBySentencesOfItsOwn)
{
    std::set<std::string> sentences;
    AllFunctions::forEach([&]<class Type>(std::type_identity<Type>) {
        EXPECT_TRUE(sentences.insert(helpText(Type::info.helpId)).second) << Type::info.typeName;
    });
    EXPECT_EQ(helpText(HelpId::noFunction), "No function.");
    EXPECT_EQ(helpText(HelpId::showHelp + 1), "Show the help.");
    EXPECT_EQ(helpText(HelpId::translateToNoteOn), "Change midi event type to note on (0x9c).");
    EXPECT_EQ(helpText(5349), "");
    EXPECT_EQ(helpText(5470), "");
}
