#include "gui/presets/SectionRow.h"

#include <QLabel>
#include <QPushButton>
#include <utility>

#include "api/OrvGuiIF.h"
#include "gui/framework/GdiManager.h"
#include "gui/framework/Properties.h"

namespace Gui::Preset
{
namespace
{
constexpr QRect LABEL(0, 0, 50, PresetCtl::HEIGHT);  // logical pixels, as all of these
constexpr QRect PRESETS(50, 0, 404, PresetCtl::HEIGHT);
constexpr QRect FIRST_BUTTON(462, 1, 64, 19);
constexpr int BUTTON_GAP = 4;
}  // namespace

SectionRow::SectionRow(OrvGuiIF& owner, const Backend::PresetSection& section, QWidget* parent,
                       PresetCtl::Selection selected)
    : QWidget(parent),
      gdi(owner.getGdiManager()),
      label(new QLabel(tr("Preset:"), this)),
      presets(new PresetCtl(owner, section, this, std::move(selected)))
{
}

QPushButton& SectionRow::addButton(const QString& text, const QString& accessibleName, const QString& help)
{
    auto* const button = new QPushButton(text, this);
    button->setFocusPolicy(Qt::TabFocus);
    button->setAccessibleName(accessibleName);
    Property::setHelp(*button, help);
    addButton(*button);
    return *button;
}

void SectionRow::addButton(QPushButton& button)
{
    button.setParent(this);
    buttons.push_back(&button);
    layOut();
}

void SectionRow::resizeEvent(QResizeEvent*) { layOut(); }

void SectionRow::layOut()
{
    label->setGeometry(gdi.px(LABEL));
    presets->setGeometry(gdi.px(PRESETS));
    QRect place = FIRST_BUTTON;
    for (QPushButton* const button : buttons) {
        button->setGeometry(gdi.px(place));
        place.translate(place.width() + BUTTON_GAP, 0);
    }
}
}  // namespace Gui::Preset
