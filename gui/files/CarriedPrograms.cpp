#include "gui/files/CarriedPrograms.h"

#include <QDataStream>
#include <QIODevice>
#include <QMimeData>
#include <QStringList>

namespace Gui::Files
{
std::unique_ptr<QMimeData> CarriedPrograms::toMimeData() const
{
    QStringList names, carried;
    for (const std::string& name : bank.programNames) names << QString::fromStdString(name);
    for (const int number : programs) carried << names.value(number);
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << QString::fromStdString(bank.name) << names << QList<int>(programs.begin(), programs.end()) << isCut;
    auto data = std::make_unique<QMimeData>();
    data->setData(FORMAT, bytes);
    data->setText(carried.join('\n'));
    return data;
}

std::optional<CarriedPrograms> CarriedPrograms::fromMimeData(const QMimeData* data)
{
    if (data == nullptr || !data->hasFormat(FORMAT)) return std::nullopt;
    QDataStream stream(data->data(FORMAT));
    QString path;
    QStringList names;
    QList<int> programs;
    CarriedPrograms carried;
    stream >> path >> names >> programs >> carried.isCut;
    if (stream.status() != QDataStream::Ok || path.isEmpty() || programs.isEmpty()) return std::nullopt;
    carried.bank.name = path.toStdString();
    for (const QString& name : names) carried.bank.programNames.push_back(name.toStdString());
    carried.programs.assign(programs.begin(), programs.end());
    return carried;
}
}  // namespace Gui::Files
