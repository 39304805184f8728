// Shows the widgets and forms of the window in all states, for those who change their look, and compares them with
// pictures of before.
#include <CLI/CLI.hpp>
#include <QApplication>
#include <iostream>

#include "api/OrvFactory.h"
#include "apps/gallery/Gallery.h"
#include "apps/gallery/Pictures.h"
#include "tests/stage/SilentPlayer.h"

int main(int argc, char** argv)
{
    CLI::App options("Shows the widgets and forms of Orvane's window in all states.", "gallery");
    Appearance appearance;
    std::string picture, written, compared;
    options.add_option("--skin", appearance.skin, "0 classic, 1 high contrast, 2 light")->check(CLI::Range(0, 2));
    options.add_option("--scale", appearance.scale, "In percent")->check(CLI::Range(75, 400));
    options.add_option("--picture", picture, "Writes a picture to this file and ends");
    options.add_option("--write", written, "Writes the pictures of the test into this folder and ends");
    options.add_option("--compare", compared, "Compares the pictures in this folder and ends with 1 if one differs");
    CLI11_PARSE(options, argc, argv);

    if (!written.empty() || !compared.empty()) Pictures::useBoxes();
    const QApplication application(argc, argv);
    QApplication::setCursorFlashTime(0);
    SilentPlayer player;
    const auto take = [&](const Appearance& shown) {
        const auto orv = Backend::OrvFactory::makeOrv("", player, false);
        return Gallery(*orv, shown).takePicture();
    };
    if (!written.empty()) return Pictures::write(written, take) ? 0 : 1;
    if (!compared.empty()) return Pictures::compare(compared, take) ? 0 : 1;
    if (!picture.empty()) return take(appearance).save(QString::fromStdString(picture)) ? 0 : 1;
    const auto orv = Backend::OrvFactory::makeOrv("", player, false);
    Gallery gallery(*orv, appearance);
    gallery.show();
    return QApplication::exec();
}
