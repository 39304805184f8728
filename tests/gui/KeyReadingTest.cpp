#include "gui/keyboard/KeyReading.h"

#include <gtest/gtest.h>

#include <QKeyEvent>

#include "keyboardhook/KeyTable.h"

TEST(KeyReading, AKeyIsKnownByItsPlaceWhateverItTypesAndElseByWhatItTypesOnTheUsLayout)
{
    constexpr quint32 NO_PLACE = 0;
    using Row = std::tuple<int, Qt::KeyboardModifiers, quint32, const char*>;
    for (const auto& [key, held, place, name] : {
             Row{Qt::Key_A, {}, 'Q', "Q"},  // the French layout
             {Qt::Key_Dead_Acute, {}, Key::EQUALS, "Equals"},
             {Qt::Key_1, Qt::ShiftModifier, '1', "Shift 1"},
             {Qt::Key_Home, Qt::KeypadModifier, Key::NUMPAD_7, "Numpad 7"},
             {Qt::Key_Home, {}, Key::HOME, "Home"},
             {Qt::Key_Backtab, Qt::ShiftModifier | Qt::ControlModifier, Key::TAB, "Shift Control Tab"},
             {Qt::Key_Space, Qt::AltModifier | Qt::MetaModifier, Key::SPACE, "Alt Win Space"},
             {Qt::Key_At, Qt::GroupSwitchModifier, 'Q', "Alt Q"},
             {Qt::Key_Control, {}, Key::RIGHT_CONTROL, "Control Right Control"},  // the toolkit has it after the event
             {Qt::Key_VolumeUp, {}, NO_PLACE, "Unknown"},
             {Qt::Key_Q, {}, NO_PLACE, "Q"},
             {Qt::Key_Exclam, Qt::ShiftModifier, NO_PLACE, "Shift 1"},
             {Qt::Key_QuoteDbl, Qt::ShiftModifier, NO_PLACE, "Shift Apostrophe"},
             {Qt::Key_5, Qt::KeypadModifier, NO_PLACE, "Numpad 5"},
             {Qt::Key_Plus, Qt::KeypadModifier, NO_PLACE, "Numpad +"},
             {Qt::Key_Up, Qt::KeypadModifier, NO_PLACE, "Numpad 8"},
             {Qt::Key_F12, {}, NO_PLACE, "F12"},
             {Qt::Key_Menu, {}, NO_PLACE, "Windows Key"},
             {Qt::Key_Adiaeresis, {}, NO_PLACE, "Unknown"},
         }) {
        const QKeyEvent event(QEvent::KeyPress, key, held,
                              place == NO_PLACE ? 0 : static_cast<quint32>(KeyTable::scanCodeOf(place)), 0, 0);
        EXPECT_EQ(Gui::readKey(event).toXmlString(), name);
    }
}
