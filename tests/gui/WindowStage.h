#pragma once

#include <optional>

#include "api/OrvGuiIF.h"
#include "api/ParentWindow.h"
#include "backend/files/RegistrySettings.h"
#include "backend/messages/GuiMessages.h"
#include "backend/model/Program.h"
#include "backend/model/ScreenState.h"
#include "gui/framework/GdiManager.h"
#include "gui/framework/GuiMessageManagerMaster.h"
#include "keyboardhook/KeyTable.h"
#include "tests/gui/Hands.h"
#include "tests/sections/KeyStage.h"

/// A backend with keys, and a window that is not yet open. It is the window's surroundings, and writes down what they
/// are reported. Controls go by their accessible names.
struct WindowStage : KeyStage, Hands, Gui::ParentWindow {
    enum class Host { program, plugin };
    static constexpr Backend::ScreenState NO_SCREENS{
        .system = false, .help = false, .computerInput = false, .output = false};

    explicit WindowStage(Host host = Host::program) { makeGui(host); }
    ~WindowStage() { gui->end(); }

    /// Another one, which knows the settings of now.
    void makeGui(Host host)
    {
        gui.reset(commands().sendCreateOrvGui(host == Host::plugin));
        gui->initialize();
    }

    /// With the screens it had, and with the focus.
    void open()
    {
        gui->create(*this);
        surroundings.show();
        comeBack();
        settle();
    }
    void open(const Backend::ScreenState& screens)
    {
        open();
        for (std::size_t screen = 0; screen < screens.toBits().size(); ++screen)
            gui->showScreen(static_cast<Backend::Screen>(screen), screens.toBits()[screen]);
        settle();
    }
    void reopen()
    {
        gui->destroy();
        open();
    }
    void comeBack()
    {
        surroundings.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&surroundings));
        gui->setFocus();
    }

    /// Until the backend has done all, and the window has handled all of it: the last message is freed after the
    /// others.
    void settle()
    {
        rest();
        auto last = std::make_shared<int>();
        const std::weak_ptr<int> unhandled = last;
        gui->getWindowHandle().post({.payload = Payload::of(std::move(last))});
        ASSERT_TRUE(QTest::qWaitFor([&] { return unhandled.expired(); }));
        rest();
    }

    /// One that is seen before one that is not, when everything is done; throws if there is none.
    template <class Control = QWidget>
    Control& control(const QString& name)
    {
        settle();
        return control<Control>(name, surroundings);
    }
    template <class Control>
    static Control& control(const QString& name, const QWidget& around)
    {
        Control* found = nullptr;
        for (QWidget* candidate : around.findChildren<QWidget*>())
            if (candidate->accessibleName() == name && (found == nullptr || !found->isVisible()))
                if (auto* fitting = dynamic_cast<Control*>(candidate)) found = fitting;
        if (found == nullptr) throw std::runtime_error("no control " + name.toStdString());
        return *found;
    }

    /// Keys go to the control with the focus, by their places on the board: the codes of a `Key`, 0 for none.
    void keyDown(auto... key) { send(QEvent::KeyPress, key...); }
    void keyUp(auto... key) { send(QEvent::KeyRelease, key...); }
    QWidget& focus()
    {
        for (QWidget* focus : {QApplication::focusWidget(), QApplication::activeWindow()})
            if (focus != nullptr) return *focus;
        return surroundings;
    }
    /// Whether what is typed plays.
    bool isPlaying() { return &focus() == &control("Playing keyboard"); }

    Backend::RegistrySettings& settings()
    {
        settle();
        return orv->getRegistrySettings();
    }

    QWidget surroundings;
    std::unique_ptr<Gui::OrvGuiIF> gui;

    // What the surroundings were reported
    QSize size;
    std::vector<std::string> moves;
    std::optional<bool> systemPanel;
    std::optional<bool> globalKeyboard;

    void send(QEvent::Type type, quint32 place, int key = 0, Qt::KeyboardModifiers held = {})
    {
        const auto scanCode = place == 0 ? 0 : static_cast<quint32>(KeyTable::scanCodeOf(place));
        QKeyEvent event(type, key, held, scanCode, 0, 0, key > 0 && key < 128 ? QString(QChar(key)).toLower() : "");
        QApplication::sendEvent(&focus(), &event);
    }

    QWidget* getWidget() override { return &surroundings; }
    void windowResized(int width, int height) override
    {
        size = {width, height};
        surroundings.resize(size);
    }
    void moveWindow(const RelativeFixedValue& x, const RelativeFixedValue& y) override
    {
        moves.push_back(x.toXmlString() + "," + y.toXmlString());
    }
    void systemPanelShown(bool on) override { systemPanel = on; }
    void globalKeyboardChanged(bool on) override { globalKeyboard = on; }
};

/// The same with its window open and a bank of the programs "P0" to "P2", whose letters and digits play C4.
struct OpenWindow : WindowStage {
    OpenWindow()
    {
        open();
        std::string bank = "<Bank>\n", notes;
        for (const char key : std::string("ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789")) notes += noteKey({key}, "C4");
        for (const std::string name : {"P0", "P1", "P2"})
            bank += "<Program name=\"" + name + "\">\n<ComputerInput>" + notes +
                    "</ComputerInput>\n<Layers>\n<Layer/>\n</Layers>\n</Program>\n";
        folder.write("Three.bnk", bank + "</Bank>\n");
        commands().postLoadBank(path("Three.bnk"));
        settle();
    }

    std::string path(const std::string& file) const { return (folder / file).string(); }
    QAbstractButton& button(const QString& name) { return control<QAbstractButton>(name); }
    QLineEdit& edit(const QString& name) { return control<QLineEdit>(name); }
    std::string textOf(const QString& name) { return edit(name).text().toStdString(); }

    void click(const QString& name)
    {
        Hands::click(button(name));
        settle();
    }
    /// Replaces the text, as it is typed after a click into it.
    void type(const QString& name, const QString& text)
    {
        QTest::mouseClick(&edit(name), Qt::LeftButton, {}, {3, 10});
        replaceText(edit(name), text);
    }
    /// What stands there afterwards, of these two.
    std::string key(const QString& name, Qt::Key pressed, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(&edit(name), pressed, modifiers);
        return textOf(name);
    }
    std::string wheel(const QString& name, int notches, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        Hands::wheel(control(name), notches, modifiers);
        return textOf(name);
    }
    void choose(const QString& text)
    {
        Hands::choose(text);
        surroundings.activateWindow();  // which the offscreen platform leaves to us
        settle();
    }

    TemporaryFolder folder;
};
