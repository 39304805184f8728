#pragma once

#include <QTreeWidget>
#include <cstdint>
#include <functional>
#include <vector>

#include "backend/values/OrvMidiMessage.h"

namespace Gui::MidiInput
{
/// The last event of each kind that the inputs received, each in its row: input, channel, event, value, and what it
/// becomes. A click on a row, or Enter, chooses its event; the other keys play on. The GUI thread.
class ReceivedList final : public QTreeWidget
{
public:
    using Event = Backend::MidiEngine::OrvMidiMessage;
    using Events = std::vector<Event>;
    /// The texts of the columns.
    using Describe = std::function<QStringList(const Event& event)>;

    explicit ReceivedList(Describe textsOf, QWidget* parent = nullptr);

    /// The user chose an event of the list.
    std::function<void(const Event& event)> onChoose;

    void setEvents(const Events& received);
    /// The texts are others now.
    void showTexts();

    /// The one that came last among those that `fits` takes; null if there is none.
    const Event* findLast(const std::function<bool(const Event& event)>& fits) const;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void showText(std::size_t row);
    void choose(const QModelIndex& index);

    const Describe describe;
    Events events;
    std::vector<std::uint64_t> ages;  // of each; the later, the higher
    std::uint64_t lastAge = 0;
};
}  // namespace Gui::MidiInput
