#pragma once

#include <QWidget>
#include <functional>
#include <map>
#include <vector>

#include "gui/framework/AccessibleControl.h"
#include "gui/screens/oscillators/OscRecords.h"

namespace Gui
{
class GuiContext;

namespace Forms
{
class RecordEditor;
}
}  // namespace Gui

namespace Gui::Oscillators
{
class OscStrip;

/// The oscillators, one strip below the other. The arrow keys go from strip to strip, Space starts and stops, Tab goes
/// through the controls of the strips. The GUI thread.
class OscCtl final : public QWidget, public AccessibleList
{
public:
    using Id = OscRecords::Id;

    /// Notified of what the user does to an oscillator, and to those that are selected with it.
    class Listener
    {
    public:
        virtual ~Listener() = default;
        virtual void setPlaying(Id id, bool on) = 0;
        /// The knob was turned.
        virtual void turnSpeed(Id id, int speed) = 0;
        /// A length was chosen, typed or stepped to.
        virtual void setSpeed(Id id, int speed) = 0;
        virtual void setSpeedMode(Id id, TimeIntervalType mode) = 0;
        virtual void addOscillator() = 0;
    };

    /// All must outlive it.
    OscCtl(GuiContext& owner, OscRecords& shownRecords, Forms::RecordEditor& recordEditor, Listener& user,
           QWidget* parent);

    /// The records, or those that are selected, have changed.
    void follow();
    /// The value that an oscillator played last; shown while the list is.
    void setValue(Id id, int value);
    /// Shows the values that were set since the last call; false if there are none.
    bool showValues();
    /// Of one that may be another oscillator now.
    void forgetValue(Id id);
    int getLogicalHeight() const;

    int getRowCount() const override { return static_cast<int>(records.size()); }
    QString getRowName(int row) const override;
    QRect getRowPlace(int row) const override;
    bool isRowSelected(int row) const override;
    int getCurrentRow() const override;
    void selectRow(int row) override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    OscStrip& makeStrip(Id id);
    void markStrips();
    Id findAt(const QPoint& point) const;
    bool useKey(const QKeyEvent& event);
    void togglePlaying();

    GuiContext& context;
    OscRecords& records;
    Forms::RecordEditor& editor;
    Listener& listener;
    std::vector<OscStrip*> strips;  // owned by Qt; those beyond the count are hidden
    std::map<Id, int> values;
    std::vector<Id> changed;  // values that are not yet shown
};
}  // namespace Gui::Oscillators
