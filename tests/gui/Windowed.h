#pragma once

#include <gtest/gtest.h>

#include <QTest>
#include <QWidget>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "backend/model/ScreenState.h"
#include "api/OrvGuiIF.h"
#include "api/ParentWindow.h"
#include "tests/stage/Stage.h"

/// A stage, of whatever kind, with a window that is not yet open. It is the window's surroundings, and writes down what
/// they are reported.
template <class Base = Stage>
class Windowed : public Base, public Gui::ParentWindow
{
public:
    enum class Host { program, plugin };

    explicit Windowed(Host host = Host::program) { makeGui(host); }
    ~Windowed() { gui->end(); }

    /// Another one, which knows the settings of now.
    void makeGui(Host host)
    {
        gui.reset(this->commands().sendCreateOrvGui(host == Host::plugin));
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
    void comeBack()
    {
        surroundings.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&surroundings));
        gui->setFocus();
    }
    void showScreens(const Backend::ScreenState& state)
    {
        const auto bits = state.toBits();
        for (std::size_t screen = 0; screen < bits.size(); ++screen)
            gui->showScreen(static_cast<Backend::Screen>(screen), bits[screen]);
    }

    /// Until the backend has done all, and the window has handled all of it: the last message is freed behind the others.
    void settle()
    {
        this->rest();
        auto last = std::make_shared<int>();
        const std::weak_ptr<int> unhandled = last;
        gui->getWindowHandle().post({.payload = Payload::of(std::move(last))});
        ASSERT_TRUE(QTest::qWaitFor([&] { return unhandled.expired(); }));
        this->rest();
    }

    /// By its accessible name, one that is seen before one that is not; throws if there is none.
    template <class Control = QWidget>
    Control& control(const QString& name)
    {
        Control* found = nullptr;
        for (auto* candidate : surroundings.findChildren<Control*>())
            if (candidate->accessibleName() == name && (found == nullptr || !found->isVisible())) found = candidate;
        if (found == nullptr) throw std::runtime_error("no control " + name.toStdString());
        return *found;
    }
    /// The only control of that type; null if the window has none.
    template <class Control>
    Control* find() const
    {
        for (QWidget* widget : surroundings.findChildren<QWidget*>())
            if (auto* found = dynamic_cast<Control*>(widget)) return found;
        return nullptr;
    }

    QWidget surroundings;
    std::unique_ptr<Gui::OrvGuiIF> gui;

    // What the surroundings were reported
    QSize size;
    std::vector<std::string> moves;
    std::optional<bool> systemPanel;
    std::optional<bool> globalKeyboard;

private:
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
