#include <gtest/gtest.h>

#include <QKeyEvent>

#include "gui/keyboard/KeyReading.h"

namespace
{
std::string read(int key, Qt::KeyboardModifiers held, quint32 place)
{
    const QKeyEvent event(QEvent::KeyPress, key, held, place, 0, 0);
    return Gui::readKey(event).toXmlString();
}

TEST(KeyReading, AKeyIsKnownByItsPlaceWhateverItTypes)
{
    struct Row {
        int key;
        Qt::KeyboardModifiers held;
        quint32 place;
        const char* name;
    };
    for (const auto& [key, held, place, name] : {
             Row{Qt::Key_A, Qt::NoModifier, 24, "Q"},  // the French layout
             Row{Qt::Key_Dead_Acute, Qt::NoModifier, 21, "Equals"},
             Row{Qt::Key_1, Qt::ShiftModifier, 10, "Shift 1"},
             Row{Qt::Key_Return, Qt::NoModifier, 36, "Enter"},
             Row{Qt::Key_Enter, Qt::KeypadModifier, 104, "Numpad Enter"},
             Row{Qt::Key_Home, Qt::KeypadModifier, 79, "Numpad 7"},
             Row{Qt::Key_7, Qt::KeypadModifier, 79, "Numpad 7"},
             Row{Qt::Key_Home, Qt::NoModifier, 110, "Home"},
             Row{Qt::Key_Backtab, Qt::ShiftModifier | Qt::ControlModifier, 23, "Shift Control Tab"},
             Row{Qt::Key_Space, Qt::AltModifier | Qt::MetaModifier, 65, "Alt Win Space"},
             Row{Qt::Key_At, Qt::GroupSwitchModifier, 24, "Alt Q"},
             Row{Qt::Key_Control, Qt::NoModifier, 105, "Control Right Control"},  // the toolkit has it after the event
             Row{Qt::Key_VolumeUp, Qt::NoModifier, 123, "Unknown"},
         })
        EXPECT_EQ(read(key, held, place), name);
}

TEST(KeyReading, WithoutPlacesItIsKnownByWhatItTypesOnTheUsLayout)
{
    struct Row {
        int key;
        Qt::KeyboardModifiers held;
        const char* name;
    };
    for (const auto& [key, held, name] : {
             Row{Qt::Key_Q, Qt::NoModifier, "Q"},
             Row{Qt::Key_Exclam, Qt::ShiftModifier, "Shift 1"},
             Row{Qt::Key_QuoteDbl, Qt::ShiftModifier, "Shift Apostrophe"},
             Row{Qt::Key_5, Qt::KeypadModifier, "Numpad 5"},
             Row{Qt::Key_Plus, Qt::KeypadModifier, "Numpad +"},
             Row{Qt::Key_Up, Qt::KeypadModifier, "Numpad 8"},
             Row{Qt::Key_F12, Qt::NoModifier, "F12"},
             Row{Qt::Key_Menu, Qt::NoModifier, "Windows Key"},
             Row{Qt::Key_Adiaeresis, Qt::NoModifier, "Unknown"},
         })
        EXPECT_EQ(read(key, held, 0), name);
}
}  // namespace
