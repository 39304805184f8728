#include "gui/screens/midiinput/ReceivedList.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <utility>

#include "gui/framework/Properties.h"

namespace Gui::MidiInput
{
namespace
{
constexpr int WIDTHS[] = {22, 17, 26, 9, 26};  // of the columns, in percent
}

ReceivedList::ReceivedList(Describe textsOf, QWidget* parent) : QTreeWidget(parent), describe(std::move(textsOf))
{
    setAccessibleName(tr("Received events"));
    Property::setHelp(*this, tr("The last event of each kind that the MIDI inputs received, and what it becomes. A "
                                "click makes an entry of it, to change what it becomes."));
    setHeaderLabels({tr("Input"), tr("Channel"), tr("Event"), tr("Value"), tr("Becomes")});
    header()->setSectionsClickable(false);
    header()->setMinimumSectionSize(1);
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::TabFocus);  // a click must not take the focus from playing
    connect(this, &QTreeWidget::clicked, this, &ReceivedList::choose);
}

void ReceivedList::setEvents(const Events& received)
{
    while (topLevelItemCount() > static_cast<int>(received.size())) delete takeTopLevelItem(topLevelItemCount() - 1);
    while (topLevelItemCount() < static_cast<int>(received.size())) new QTreeWidgetItem(this);
    events.resize(received.size());
    ages.resize(received.size());
    for (std::size_t row = 0; row < received.size(); ++row) {
        const auto words = [](const Event& event) { return std::pair(event.getWparam(), event.getLparam()); };
        if (ages[row] != 0 && words(events[row]) == words(received[row])) continue;
        events[row] = received[row];
        ages[row] = ++lastAge;
        showText(row);
    }
}

void ReceivedList::showTexts()
{
    for (std::size_t row = 0; row < events.size(); ++row) showText(row);
}

void ReceivedList::showText(std::size_t row)
{
    QTreeWidgetItem& item = *topLevelItem(static_cast<int>(row));
    const QStringList texts = describe(events[row]);
    for (int column = 0; column < texts.size(); ++column) item.setText(column, texts[column]);
}

const ReceivedList::Event* ReceivedList::findLast(const std::function<bool(const Event& event)>& fits) const
{
    const Event* found = nullptr;
    std::uint64_t age = 0;
    for (std::size_t row = 0; row < events.size(); ++row)
        if (ages[row] > age && fits(events[row])) {
            found = &events[row];
            age = ages[row];
        }
    return found;
}

void ReceivedList::choose(const QModelIndex& index)
{
    if (index.isValid() && onChoose) onChoose(Event(events[static_cast<std::size_t>(index.row())]));
}

void ReceivedList::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return choose(currentIndex());
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
        case Qt::Key_Home:
        case Qt::Key_End:
            return QTreeWidget::keyPressEvent(event);
        default:
            event->ignore();
    }
}

void ReceivedList::resizeEvent(QResizeEvent* event)
{
    QTreeWidget::resizeEvent(event);
    for (int column = 0; column < static_cast<int>(std::size(WIDTHS)); ++column)
        header()->resizeSection(column, viewport()->width() * WIDTHS[column] / 100);
}
}  // namespace Gui::MidiInput
