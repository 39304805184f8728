#pragma once

#include <gtest/gtest.h>

#include <QTest>
#include <QWidget>
#include <memory>
#include <utility>

#include "backend/core/Screen.h"
#include "gui/OrvGuiIF.h"
#include "gui/ParentWindow.h"
#include "tests/stage/Stage.h"

/// A stage with a window, which stands in a widget of the host's. It shows the screens that a test asks for.
struct ScreenStage : Stage {
    struct Surroundings final : Gui::ParentWindow {
        QWidget widget;
        QWidget* getWidget() override { return &widget; }
        void windowResized(int width, int height) override { widget.resize(width, height); }
        void moveWindow(const RelativeFixedValue&, const RelativeFixedValue&) override {}
    };

    Surroundings host;
    std::unique_ptr<Gui::OrvGuiIF> gui;

    ScreenStage() : gui(commands().sendCreateOrvGui(false))
    {
        gui->initialize();
        open();
        for (const Backend::Screen screen : {Backend::Screen::system, Backend::Screen::help, Backend::Screen::display,
                                             Backend::Screen::computerInput, Backend::Screen::output})
            gui->showScreen(screen, false);
        host.widget.show();
        gui->setFocus();
        told();
    }
    ~ScreenStage() { gui->end(); }

    void open() { gui->create(host); }

    /// Until the window has been told all that there is to tell: the last message is freed behind the others.
    void told()
    {
        rest();
        auto last = std::make_shared<int>();
        const std::weak_ptr<int> untold = last;
        gui->getWindowHandle().post({.payload = Payload::of(std::move(last))});
        ASSERT_TRUE(QTest::qWaitFor([&] { return untold.expired(); }));
    }

    /// The only control of that type; null if the window has none.
    template <class Control>
    Control* find() const
    {
        for (QWidget* widget : host.widget.findChildren<QWidget*>())
            if (auto* control = dynamic_cast<Control*>(widget)) return control;
        return nullptr;
    }

    /// The control of that accessible name; null if there is none.
    QWidget* named(const char* name) const
    {
        for (QWidget* widget : host.widget.findChildren<QWidget*>())
            if (widget->accessibleName() == QLatin1String(name)) return widget;
        return nullptr;
    }
};
