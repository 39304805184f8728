#include "gui/screens/setup/PortListField.h"

#include <QBoxLayout>
#include <QLabel>
#include <QListWidget>

#include "api/OrvGuiIF.h"
#include "api/OrvMessageManager.h"
#include "gui/framework/Properties.h"
#include "gui/screens/setup/SettingTables.h"
#include "gui/screens/setup/SetupRow.h"

namespace Gui::Setup
{
using Backend::MidiEngine::MidiPort;

namespace
{
QString textOf(const MidiPort& port)
{
    const QString name = QString::fromStdString(port.name);
    return port.found ? name : QListWidget::tr("%1 (Not Found)").arg(name);
}

/// "Couldn't open: Out 1, Out 2"; empty if all ports are open.
QString describeFailures(const std::vector<MidiPort>& ports)
{
    if (ports.empty()) return QListWidget::tr("There are none.");
    QStringList names;
    for (const MidiPort& port : ports)
        if (port.couldNotOpen) names.append(QString::fromStdString(port.name));
    return names.isEmpty() ? QString() : QListWidget::tr("Couldn't open: %1").arg(names.join(QStringLiteral(", ")));
}
}  // namespace

PortListField::PortListField(OrvGuiIF& owner, const PortSide& portSide, QBoxLayout& page)
    : gui(owner), side(portSide), list(new QListWidget), failures(new QLabel)
{
    list->setAccessibleName(QListWidget::tr(side.name));
    Property::setHelp(*list, QListWidget::tr(side.help));
    Property::set(*list, Property::TEXT, true);
    failures->setTextFormat(Qt::PlainText);
    failures->setWordWrap(true);
    page.addWidget(list, 1);
    page.addWidget(failures);
}

bool PortListField::isChecked(int row) const { return list->item(row)->checkState() == Qt::Checked; }

PortChoices PortListField::getChoices() const
{
    PortChoices choices = known;
    for (std::size_t row = 0; row < choices.size(); ++row) choices[row].enabled = isChecked(static_cast<int>(row));
    return choices;
}

std::vector<int> PortListField::findChanged() const
{
    std::vector<int> changed;
    for (int row = 0; row < list->count(); ++row)
        if (isChecked(row) != known[static_cast<std::size_t>(row)].enabled) changed.push_back(row);
    return changed;
}

/// A port keeps its number, and so its row.
void PortListField::follow()
{
    const auto ports = side.get(gui);
    const auto changed = findChanged();
    while (list->count() > std::ssize(ports)) delete list->takeItem(list->count() - 1);
    while (list->count() < std::ssize(ports)) (new QListWidgetItem(list))->setSizeHint(SetupRow::LIST_ROW);
    known.clear();
    for (int row = 0; row < list->count(); ++row) {
        const MidiPort& port = ports[static_cast<std::size_t>(row)];
        known.push_back({port.name, port.enabled});
        QListWidgetItem& item = *list->item(row);
        item.setText(textOf(port));
        if (std::ranges::find(changed, row) == changed.end())
            item.setCheckState(port.enabled ? Qt::Checked : Qt::Unchecked);
    }
    if (list->currentRow() < 0) list->setCurrentRow(0);
    failures->setText(describeFailures(ports));
    failures->setHidden(failures->text().isEmpty());
}

bool PortListField::isChanged() const { return !findChanged().empty(); }

void PortListField::post() const
{
    for (const int row : findChanged()) (gui.getOrvMessageManager().*side.post)(row, isChecked(row));
}

QWidget& PortListField::getControl() const { return *list; }
}  // namespace Gui::Setup
