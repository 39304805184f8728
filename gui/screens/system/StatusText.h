#pragma once

#include <QAbstractButton>
#include <QTimer>

#include "gui/framework/AccessibleControl.h"

namespace Gui
{
class GdiManager;
}

namespace Gui::System
{
/// The text of the status line: what was done, for three seconds; else what is wrong, in red until it is put right;
/// else the state of output and sound. It can be clicked. The GUI thread.
class StatusText final : public QAbstractButton, public AccessibleControl
{
public:
    StatusText(const GdiManager& manager, QWidget* parent);

    void showState(const QString& text);
    /// What is wrong and what to do about it; empty when it is put right.
    void showTrouble(const QString& text);
    void showMessage(const QString& text);

    bool hasTrouble() const { return !trouble.isEmpty(); }
    QString getShown() const;

    QAccessible::Role getAccessibleRole() const override { return QAccessible::StatusBar; }
    QString getAccessibleValue() const override { return getShown(); }
    void pressAccessible() override { click(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void change(QString& text, const QString& newText);

    const GdiManager& gdi;
    QString state;
    QString trouble;
    QString message;
    QTimer messageGone;
};
}  // namespace Gui::System
