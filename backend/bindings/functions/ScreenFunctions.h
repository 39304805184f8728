#pragma once

#include "backend/bindings/functions/FunctionFamilies.h"
#include "backend/bindings/functions/HelpId.h"
#include "backend/model/WindowMove.h"

namespace Backend::FunctionManagement::Functions
{
/// Shows a screen, hides it, or toggles it.
template <class Derived>
class ShowFunction : public ToggleFunction<Derived>
{
public:
    using ToggleFunction<Derived>::ToggleFunction;

    void execute() override
    {
        if (this->toggle.state == OnOffToggle::State::toggle)
            (this->orv().*Derived::toggleScreen)();
        else
            (this->orv().*Derived::showScreen)(this->toggle.state == OnOffToggle::State::on);
    }
};

class ShowSystem final : public ShowFunction<ShowSystem>
{
public:
    static constexpr FunctionInfo info{"Show Main Screen", "ShowSystem", HelpId::showSystem};
    static constexpr auto showScreen = &OrvIF::showSystemPanel;
    static constexpr auto toggleScreen = &OrvIF::toggleSystemPanel;
    using ShowFunction::ShowFunction;
};

class ShowHelp final : public ShowFunction<ShowHelp>
{
public:
    static constexpr FunctionInfo info{"Show Help", "ShowHelp", HelpId::showHelp};
    static constexpr auto showScreen = &OrvIF::showHelp;
    static constexpr auto toggleScreen = &OrvIF::toggleHelp;
    using ShowFunction::ShowFunction;
};

class ShowDisplay final : public ShowFunction<ShowDisplay>
{
public:
    static constexpr FunctionInfo info{"Show Display", "ShowDisplay", HelpId::showDisplay};
    static constexpr auto showScreen = &OrvIF::showDisplay;
    static constexpr auto toggleScreen = &OrvIF::toggleDisplay;
    using ShowFunction::ShowFunction;
};

class ShowOscillator final : public ShowFunction<ShowOscillator>
{
public:
    static constexpr FunctionInfo info{"Show Oscillator", "ShowOscillator", HelpId::showOscillator};
    static constexpr auto showScreen = &OrvIF::showOsc;
    static constexpr auto toggleScreen = &OrvIF::toggleOsc;
    using ShowFunction::ShowFunction;
};

class ShowJoystick final : public ShowFunction<ShowJoystick>
{
public:
    static constexpr FunctionInfo info{"Show Joystick Input", "ShowJoystick", HelpId::showJoystick};
    static constexpr auto showScreen = &OrvIF::showJoystick;
    static constexpr auto toggleScreen = &OrvIF::toggleJoystick;
    using ShowFunction::ShowFunction;
};

class ShowMidiInput final : public ShowFunction<ShowMidiInput>
{
public:
    static constexpr FunctionInfo info{"Show Midi Input", "ShowMidiInput", HelpId::showMidiInput};
    static constexpr auto showScreen = &OrvIF::showMidiInput;
    static constexpr auto toggleScreen = &OrvIF::toggleMidiInput;
    using ShowFunction::ShowFunction;
};

class ShowComputerInput final : public ShowFunction<ShowComputerInput>
{
public:
    static constexpr FunctionInfo info{"Show Computer Input", "ShowComputerInput", HelpId::showComputerInput};
    static constexpr auto showScreen = &OrvIF::showComputerInput;
    static constexpr auto toggleScreen = &OrvIF::toggleComputerInput;
    using ShowFunction::ShowFunction;
};

class ShowControl final : public ShowFunction<ShowControl>
{
public:
    static constexpr FunctionInfo info{"Show Controls", "ShowControl", HelpId::showControl};
    static constexpr auto showScreen = &OrvIF::showControl;
    static constexpr auto toggleScreen = &OrvIF::toggleControl;
    using ShowFunction::ShowFunction;
};

class ShowOutput final : public ShowFunction<ShowOutput>
{
public:
    static constexpr FunctionInfo info{"Show Output", "ShowOutput", HelpId::showOutput};
    static constexpr auto showScreen = &OrvIF::showOutput;
    static constexpr auto toggleScreen = &OrvIF::toggleOutput;
    using ShowFunction::ShowFunction;
};

class ShowCc final : public ShowFunction<ShowCc>
{
public:
    static constexpr FunctionInfo info{"Show CC", "ShowCC", HelpId::showCc};
    static constexpr auto showScreen = &OrvIF::showCc;
    static constexpr auto toggleScreen = &OrvIF::toggleCc;
    using ShowFunction::ShowFunction;
};

class ShowZone final : public ShowFunction<ShowZone>
{
public:
    static constexpr FunctionInfo info{"Show Zone", "ShowZone", HelpId::showZone};
    static constexpr auto showScreen = &OrvIF::showZone;
    static constexpr auto toggleScreen = &OrvIF::toggleZone;
    using ShowFunction::ShowFunction;
};

class ShowLayer final : public ShowFunction<ShowLayer>
{
public:
    static constexpr FunctionInfo info{"Show Layer", "ShowLayer", HelpId::showLayer};
    static constexpr auto showScreen = &OrvIF::showLayer;
    static constexpr auto toggleScreen = &OrvIF::toggleLayer;
    using ShowFunction::ShowFunction;
};

class ShowSaveDialog final : public ActionFunction<ShowSaveDialog>
{
public:
    static constexpr FunctionInfo info{"Show Save Dialog", "ShowSaveDialog", HelpId::showSaveDialog};
    using FunctionOf::FunctionOf;

    void execute() override { orv().showSaveDialog(); }
};

class ShowProgramMenu final : public ActionFunction<ShowProgramMenu>
{
public:
    static constexpr FunctionInfo info{"Show Program Menu", "ShowProgramMenu", HelpId::showProgramMenu};
    using FunctionOf::FunctionOf;

    void execute() override { orv().showProgramMenu(); }
};

class ShowDefaultMidiOutputMenu final : public ActionFunction<ShowDefaultMidiOutputMenu>
{
public:
    static constexpr FunctionInfo info{"Show Default Midi Output Menu", "ShowDefaultMidiOutputMenu",
                                       HelpId::showDefaultMidiOutputMenu};
    using FunctionOf::FunctionOf;

    void execute() override { orv().showDefaultMidiOutputMenu(); }
};

/// Moves the main window: "+n" moves by that many pixels, "n" to that position, blank leaves the coordinate unchanged.
class MoveWindowFunction final : public FunctionOf<MoveWindowFunction, MoveWindowSettingsType>
{
public:
    static constexpr FunctionInfo info{"Move Window", "MoveWindow", HelpId::moveWindow};
    using FunctionOf::FunctionOf;

    void execute() override { orv().moveWindow({{x}, {y}}); }

    RelativeFixedValue getX() const override { return x; }
    void setX(RelativeFixedValue position) override { x = position; }
    RelativeFixedValue getY() const override { return y; }
    void setY(RelativeFixedValue position) override { y = position; }

    static auto attributes(auto&& use)
    {
        return use(Attribute{"x", &MoveWindowFunction::x}, Attribute{"y", &MoveWindowFunction::y});
    }

private:
    RelativeFixedValue x = BLANK;
    RelativeFixedValue y = BLANK;
};

}  // namespace Backend::FunctionManagement::Functions
