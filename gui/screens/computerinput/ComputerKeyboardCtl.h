#pragma once

#include <QWidget>
#include <set>

#include "backend/model/KeyConfigurationMap.h"
#include "gui/framework/AccessibleControl.h"
#include "gui/framework/GdiManager.h"
#include "gui/screens/computerinput/KeyLabels.h"

namespace Gui
{
class OrvGuiIF;
}

namespace Gui::ComputerInput
{
struct PlannedKey;

/// The picture of the computer's keyboard. Each key shows what is printed on it and what it does; those that are down
/// are lit, and while a modifier is down it shows what the keys do with it. The mouse plays it like the real one.
class ComputerKeyboardCtl final : public QWidget, public AccessibleControl
{
public:
    ComputerKeyboardCtl(OrvGuiIF& owner, const Backend::ComputerInput::KeyConfigurationMap& configurations,
                        QWidget* parent);

    // By code. A key that the board does not have is nothing.
    void showKeyDown(int keyCode);
    void showKeyUp(int keyCode);
    void clearHilight();

    /// What is shown of a key, as it is now.
    QString getCaption(int keyCode) const;
    QString getHelp(int keyCode) const;
    /// The middle of a key, in logical pixels.
    QPoint getPlace(int keyCode) const;

    /// The configurations are others.
    void showConfigurations();

    QAccessible::Role getAccessibleRole() const override { return QAccessible::Graphic; }
    QString getAccessibleValue() const override;
    bool isPressable() const override { return false; }

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    /// How a key is painted.
    struct Look {
        GdiManager::Role fill;
        GdiManager::Role label;
        GdiManager::Role caption;
    };

    const Backend::ComputerInput::KeyConfiguration* findConfiguration(int keyCode) const;
    Look lookOf(int keyCode) const;
    QRectF rectOf(const PlannedKey& key) const;
    const PlannedKey* keyAt(QPointF place) const;
    void paintKey(QPainter& painter, const PlannedKey& key) const;
    void showHelp(const PlannedKey* key);
    void changed();
    void letGo();

    OrvGuiIF& gui;
    const Backend::ComputerInput::KeyConfigurationMap& keys;
    KeyLabels labels;
    std::set<int> down;
    Key held;  // the modifiers that are down
    int helpedKey = -1;
};
}  // namespace Gui::ComputerInput
