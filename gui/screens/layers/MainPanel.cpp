#include "gui/screens/layers/MainPanel.h"

#include <cmath>

#include <QEvent>

#include "api/OrvGuiIF.h"
#include "gui/forms/RecordForm.h"
#include "gui/framework/GdiManager.h"
#include "gui/screens/layers/LayerPanel.h"

namespace Gui::Layers
{
namespace
{
constexpr int COLUMNS = 3;
}  // namespace

/// The settings of the selected layers, while they are open.
class MainPanel::Settings final : public Panel
{
public:
    Settings(OrvGuiIF& owner, Forms::RecordEditor& editor, Panel* around)
        : Panel(around), form(new Forms::RecordForm(owner, editor, this, COLUMNS))
    {
        editor.observe(*this, [this] { fit(); });
        form->installEventFilter(this);
    }

protected:
    /// The rows of the form are shown, and have a size, after the event in which they were made.
    bool eventFilter(QObject* object, QEvent* event) override
    {
        if (event->type() == QEvent::LayoutRequest) fit();
        return Panel::eventFilter(object, event);
    }
    void scaleChanged() override { fit(); }

private:
    void fit()
    {
        const bool isOpen = !form->isHidden();
        if (isOpen) {
            const int height = static_cast<int>(std::ceil(form->sizeHint().height() / getGdi().getScale()));
            place(*form, {LayerPanel::MARGIN, 0, LayerPanel::WIDTH - 2 * LayerPanel::MARGIN, height});
            setPanelSize({LayerPanel::WIDTH, height});
        }
        show(isOpen);
    }

    Forms::RecordForm* form;
};

MainPanel::MainPanel(OrvGuiIF& owner, Panel* around) : Panel(around), layerPanel(new LayerPanel(owner, this))
{
    layerPanel->show(true);
    new Settings(owner, layerPanel->getEditor(), this);
}
}  // namespace Gui::Layers
