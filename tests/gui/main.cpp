#include <gtest/gtest.h>

#include <QApplication>

#include "api/OrvFactory.h"
#include "gui/window/OrvGuiFactory.h"
#include "tests/stage/System.h"

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    System::offerFonts();
    const QApplication application(argc, argv);
    Backend::OrvFactory::setGuiFactory(&Gui::OrvGuiFactory::createOrvGui);
    return RUN_ALL_TESTS();
}
