#include "apps/gallery/Pictures.h"

#include <QDir>
#include <QSet>
#include <iostream>

#include "gui/framework/GdiManager.h"

namespace
{
// Gradients and curves may be rounded differently by another build of the toolkit.
constexpr int TOLERANCE = 2;

constexpr Appearance ALL[] = {{0, 100}, {1, 100}, {2, 100}, {0, 150}};

std::string nameOf(const Appearance& appearance)
{
    QString skin = Gui::GdiManager::SKINS[static_cast<std::size_t>(appearance.skin)].name;
    return (skin.toLower().replace(' ', '-') + '-' + QString::number(appearance.scale) + ".png").toStdString();
}

QString pathIn(const std::string& folder, const Appearance& appearance)
{
    return QDir(QString::fromStdString(folder)).filePath(QString::fromStdString(nameOf(appearance)));
}

bool isClose(QRgb one, QRgb other)
{
    return std::abs(qRed(one) - qRed(other)) <= TOLERANCE && std::abs(qGreen(one) - qGreen(other)) <= TOLERANCE &&
           std::abs(qBlue(one) - qBlue(other)) <= TOLERANCE;
}

/// White where they differ, also where one of them has nothing; null if they are equal.
QImage differenceOf(const QImage& one, const QImage& other)
{
    QImage difference(one.size().expandedTo(other.size()), QImage::Format_Mono);
    difference.fill(0);
    bool isEqual = one.size() == other.size();
    for (int y = 0; y < difference.height(); ++y)
        for (int x = 0; x < difference.width(); ++x)
            if (!one.valid(x, y) || !other.valid(x, y) || !isClose(one.pixel(x, y), other.pixel(x, y))) {
                difference.setPixel(x, y, 1);
                isEqual = false;
            }
    return isEqual ? QImage() : difference;
}

/// With a palette if it has no more colours than fit into one.
QImage compact(const QImage& picture)
{
    QList<QRgb> colours;
    QHash<QRgb, int> indices;
    QImage result(picture.size(), QImage::Format_Indexed8);
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x) {
            const QRgb colour = picture.pixel(x, y);
            const auto known = indices.constFind(colour);
            const int index = known == indices.constEnd() ? static_cast<int>(indices.size()) : *known;
            if (index > 255) return picture;
            if (known == indices.constEnd()) {
                indices.insert(colour, index);
                colours.append(colour);
            }
            result.scanLine(y)[x] = static_cast<uchar>(index);
        }
    result.setColorTable(colours);
    return result;
}
}  // namespace

void Pictures::useBoxes()
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_SCALE_FACTOR", "1");
    qputenv("FONTCONFIG_FILE", ORVANE_GALLERY "/fonts/fonts.conf");
}

bool Pictures::write(const std::string& folder, const Take& take)
{
    bool isWritten = QDir().mkpath(QString::fromStdString(folder));
    for (const Appearance& appearance : ALL)
        isWritten = compact(take(appearance)).save(pathIn(folder, appearance), "PNG", 0) && isWritten;
    return isWritten;
}

bool Pictures::compare(const std::string& folder, const Take& take)
{
    bool isEqual = true;
    for (const Appearance& appearance : ALL) {
        const QImage expected(pathIn(folder, appearance));
        const QImage difference = differenceOf(take(appearance), expected.convertToFormat(QImage::Format_RGB32));
        if (difference.isNull()) continue;
        const QString path =
            QDir::current().absoluteFilePath("difference-" + QString::fromStdString(nameOf(appearance)));
        difference.save(path);
        std::cout << nameOf(appearance) << " looks different: " << path.toStdString() << '\n';
        isEqual = false;
    }
    return isEqual;
}
