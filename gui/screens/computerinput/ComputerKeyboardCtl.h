#pragma once

#include <QWidget>
#include <set>

#include "backend/model/KeyConfiguration.h"
#include "backend/model/ZoneMap.h"
#include "gui/framework/AccessibleControl.h"
#include "gui/framework/GdiManager.h"
#include "gui/screens/computerinput/KeyLabels.h"

namespace Gui
{
class OrvGuiIF;

namespace Forms
{
class RecordEditor;
}
}  // namespace Gui

namespace Gui::ComputerInput
{
class KeyRecords;
struct PlannedKey;

/// The picture of the computer's keyboard. Each key shows its label and its function, a note as it sounds and in the
/// colour of its zone; keys that are down are lit, and while a modifier is down the functions under that modifier are
/// shown. Keys can be pressed with the mouse. While the settings of the section are open, it shows the functions under
/// the modifiers of the records instead, and a click selects. The arrow keys go from key to key.
class ComputerKeyboardCtl final : public QWidget, public AccessibleControl
{
public:
    /// All must outlive it. The records are those of the editor.
    ComputerKeyboardCtl(OrvGuiIF& owner, KeyRecords& shownRecords, Forms::RecordEditor& recordEditor,
                        const Backend::Zones::ZoneMap& playedZones, QWidget* parent);

    // By key code; a code without a key is ignored.
    void showKeyDown(int keyCode);
    void showKeyUp(int keyCode);
    void clearHilight();

    /// The caption and the help text that a key has now.
    QString getCaption(int keyCode) const;
    QString getHelp(int keyCode) const;
    /// The middle of a key, in logical pixels.
    QPoint getPlace(int keyCode) const;

    /// The scale has changed.
    void rescale();
    /// The configurations or the zones have changed.
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
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    /// How a key is painted.
    struct Look {
        QColor fill;
        QColor label;
        QColor caption;
    };

    Key keyOf(int keyCode) const;
    bool isEditing() const;
    const Backend::ComputerInput::KeyConfiguration* findConfiguration(int keyCode) const;
    void selectionChanged();
    bool moveTo(int key, Qt::KeyboardModifiers modifiers);
    Look lookOf(int keyCode) const;
    Look filled(GdiManager::Role fill) const;
    QRect rectOf(const PlannedKey& key) const;
    const PlannedKey* keyAt(QPointF place) const;
    void paintKey(QPainter& painter, const PlannedKey& key) const;
    void paintMarks(QPainter& painter, const PlannedKey& key) const;
    void showHelp(const PlannedKey* key);
    void changed();
    void releaseKeys();

    OrvGuiIF& gui;
    KeyRecords& records;
    Forms::RecordEditor& editor;
    const Backend::Zones::ZoneMap& zones;
    KeyLabels labels;
    std::set<int> down;
    Key held;  // the modifiers that are down
    int helpedKey = -1;
};
}  // namespace Gui::ComputerInput
