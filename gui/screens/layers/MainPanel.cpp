#include "gui/screens/layers/MainPanel.h"

#include <cmath>

#include <QEvent>

#include "api/OrvGuiIF.h"
#include "gui/forms/RecordForm.h"
#include "gui/framework/GdiManager.h"
#include "gui/screens/layers/LayerPanel.h"
#include "gui/screens/layers/SequencePanel.h"

namespace Gui::Layers
{
namespace
{
constexpr int COLUMNS = 3;
}  // namespace

/// The settings of the selected layers, while they are open, and under them the sequence of their arpeggio.
class MainPanel::Settings final : public Panel
{
public:
    Settings(OrvGuiIF& owner, LayerPanel& layerPanel, Panel* around)
        : Panel(around),
          layers(layerPanel),
          form(new Forms::RecordForm(owner, layerPanel.getEditor(), this, COLUMNS)),
          sequence(new SequencePanel(owner, layerPanel.getLayers(), layerPanel.getEditor(), this))
    {
        layerPanel.getEditor().observe(*this, [this] { fit(); });
        form->installEventFilter(this);
    }

    SequencePanel& getSequence() { return *sequence; }
    Forms::RecordForm& getForm() { return *form; }

protected:
    /// The rows of the form are shown, and have a size, after the event in which they were made.
    bool eventFilter(QObject* object, QEvent* event) override
    {
        if (event->type() == QEvent::LayoutRequest) fit();
        return Panel::eventFilter(object, event);
    }
    void scaleChanged() override
    {
        sequence->rescale();
        fit();
    }

private:
    void fit()
    {
        const bool isOpen = !form->isHidden();
        if (isOpen) {
            const int height = static_cast<int>(std::ceil(form->sizeHint().height() / getGdi().getScale()));
            const int width = LayerPanel::WIDTH - 2 * LayerPanel::MARGIN;
            const int beneath = sequence->isWanted() ? GAP + SequencePanel::getLogicalHeight() : 0;
            place(*form, {LayerPanel::MARGIN, 0, width, height});
            if (beneath > 0)
                place(*sequence, {LayerPanel::MARGIN, height + GAP, width, SequencePanel::getLogicalHeight()});
            setPanelSize({LayerPanel::WIDTH, height + beneath});
        }
        sequence->follow();
        sequence->setVisible(sequence->isWanted());
        const bool opens = isOpen && !isShown();
        show(isOpen);
        if (opens && layers.hasListFocus()) form->focusFirst();
    }

    const LayerPanel& layers;
    Forms::RecordForm* form;
    SequencePanel* sequence;
};

MainPanel::MainPanel(OrvGuiIF& owner, Panel* around) : Panel(around), layerPanel(new LayerPanel(owner, this))
{
    layerPanel->show(true);
    settings = new Settings(owner, *layerPanel, this);
}

void MainPanel::handleSequenceSteps(const std::vector<int>& steps) { settings->getSequence().handleSteps(steps); }

void MainPanel::handleSequencePresets()
{
    layerPanel->takeLists();
    settings->getForm().renew();
    settings->getSequence().handlePresets();
}
}  // namespace Gui::Layers
