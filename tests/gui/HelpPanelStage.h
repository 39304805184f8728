#pragma once

#include <QPlainTextEdit>

#include "tests/gui/WindowStage.h"

struct HelpPanel : OpenWindow, testing::Test {
    QPlainTextEdit& area() { return control<QPlainTextEdit>("Help"); }
    std::string help() { return area().toPlainText().toStdString(); }
    bool fits() { return area().document()->size().height() + 1 <= 4; }
    void pointAt(QWidget& widget)
    {
        const QPointF middle = widget.rect().center();
        QEnterEvent event(middle, middle, widget.mapToGlobal(middle));
        QApplication::sendEvent(&widget, &event);
        settle();
    }
};
