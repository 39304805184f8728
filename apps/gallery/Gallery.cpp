#include "apps/gallery/Gallery.h"

#include <QApplication>
#include <QEvent>
#include <QVBoxLayout>
#include <chrono>

#include "apps/gallery/Bindings.h"
#include "apps/gallery/Parts.h"
#include "apps/gallery/Records.h"
#include "apps/gallery/Widgets.h"
#include "backend/files/GuiStart.h"
#include "gui/framework/Skinner.h"
#include "gui/window/OrvGuiFactory.h"

using namespace Gui;
using namespace Backend;

namespace
{
constexpr QSize SIZE{1000, 900};
constexpr std::chrono::milliseconds LIGHT_AGAIN{100};

GuiStart startOf(const Appearance& appearance)
{
    GuiStart start;
    start.settings.set<Settings::SKIN>(appearance.skin);
    start.settings.set<Settings::WINDOW_SCALE>(appearance.scale);
    return start;
}
}  // namespace

Gallery::Gallery(OrvIF& orv, const Appearance& appearance) : gui(OrvGuiFactory::createOrvGui(orv, startOf(appearance)))
{
    gui->create(*this);
    setWindowTitle(QStringLiteral("Orvane gallery"));
    auto* all = new QWidget;
    all->setAutoFillBackground(true);
    auto* column = new QVBoxLayout(all);
    column->addWidget(widgets = new Widgets(*gui));
    column->addWidget(parts = new Parts(*gui));
    for (const auto kind : {Bindings::Of::functions, Bindings::Of::translations})
        column->addWidget(new Bindings(*gui, orv, kind));
    column->addWidget(records = new Records(*gui));
    setWidget(all);
    setWidgetResizable(true);
    gui->getSkinner().skinWindow(*this);
    resize(gui->getGdiManager().px(SIZE));
    connect(&lighting, &QTimer::timeout, this, [this] { parts->light(); });
    lighting.start(LIGHT_AGAIN);
}

/// The controls go before the look that they are drawn with.
Gallery::~Gallery()
{
    delete takeWidget();
    gui->end();
}

bool Gallery::event(QEvent* event)
{
    if (event->type() == QEvent::WindowActivate) QTimer::singleShot(0, this, &Gallery::photograph);
    return QScrollArea::event(event);
}

/// Until all layouts follow what the controls need.
void Gallery::settle()
{
    QSize before;
    do {
        before = widget()->size();
        QApplication::processEvents();
        for (QLayout* layout : widget()->findChildren<QLayout*>()) layout->activate();
        widget()->resize(widget()->sizeHint());
    } while (widget()->size() != before);
}

/// Once.
void Gallery::photograph()
{
    settle();
    if (isPhotographed) return;
    isPhotographed = true;
    widgets->photographFocus();
    parts->photographWindows();
    if (QWidget* focused = focusWidget()) focused->clearFocus();
}

QImage Gallery::takePicture()
{
    lighting.stop();
    show();
    activateWindow();
    while (!isPhotographed || !parts->isLit() || !records->areShown())
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    settle();
    parts->light();
    return widget()->grab().toImage().convertToFormat(QImage::Format_RGB32);
}
