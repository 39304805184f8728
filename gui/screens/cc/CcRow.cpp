#include "gui/screens/cc/CcRow.h"

#include <QPainter>
#include <QPushButton>
#include <string>
#include <utility>
#include <vector>

#include "api/OrvGuiIF.h"
#include "backend/values/ControllerNames.h"
#include "gui/framework/ComboBox.h"
#include "gui/framework/Fader.h"
#include "gui/framework/GdiManager.h"
#include "gui/framework/Properties.h"

namespace Gui::Cc
{
namespace
{
constexpr int CONTROLLERS = 128;
constexpr QRect CHOICES(0, 1, 170, 20);  // logical pixels, as these
constexpr QRect FADER(178, 0, 210, 22);
constexpr QRect NUMBER(392, 1, 32, 20);
constexpr QRect REMOVE(430, 1, 24, 20);

QString nameOf(int controller)
{
    return QStringLiteral("%1 %2")
        .arg(controller)
        .arg(QString::fromStdString(Backend::MidiEngine::getControllerName(controller)));
}
}  // namespace

CcRow::CcRow(OrvGuiIF& owner, QWidget* panel)
    : QWidget(panel),
      gui(owner),
      choices(new ComboBox(owner, ComboBox::Typing::readOnly, this)),
      fader(new Fader(owner, Qt::Horizontal, this)),
      remove(new QPushButton(QStringLiteral("x"), this))
{
    std::vector<ComboBox::Entry> entries;
    for (int number = 0; number < CONTROLLERS; ++number) entries.push_back({.text = nameOf(number)});
    choices->setEntries(std::move(entries));
    Property::set(*choices, Property::TEXT, true);
    Property::setHelp(*choices, tr("The controller that the fader sends."));
    choices->onChange = [this](int chosen) { onController(chosen); };
    Property::setHelp(*fader, tr("Sends the controller to the output and the channel above, and follows what is sent "
                                 "there: drag, wheel or arrow keys."));
    fader->onChange = [this](int newValue) {
        value = newValue;
        update();
        onValue(newValue);
    };
    remove->setFocusPolicy(Qt::TabFocus);
    Property::setHelp(*remove, tr("Removes the row. What was sent stays."));
    connect(remove, &QPushButton::clicked, this, [this] { onRemove(); });
}

void CcRow::showController(int newController)
{
    if (controller == newController) return;
    controller = newController;
    const QString name = nameOf(controller);
    choices->setSelectedIndex(controller);
    choices->setAccessibleName(tr("Controller %1").arg(controller));
    fader->setAccessibleName(name);
    remove->setAccessibleName(tr("Remove %1").arg(name));
}

void CcRow::showValue(std::optional<int> newValue)
{
    fader->showValue(newValue.value_or(0));
    if (value == newValue) return;
    value = newValue;
    update(getNumberPlace());
}

QRect CcRow::getNumberPlace() const { return gui.getGdiManager().px(NUMBER); }

void CcRow::paintEvent(QPaintEvent*)
{
    const GdiManager& gdi = gui.getGdiManager();
    QPainter painter(this);
    painter.setPen(gdi.getColour(GdiManager::Role::text));
    if (value) painter.drawText(getNumberPlace(), Qt::AlignRight | Qt::AlignVCenter, QString::number(*value));
}

void CcRow::resizeEvent(QResizeEvent*)
{
    const GdiManager& gdi = gui.getGdiManager();
    choices->setGeometry(gdi.px(CHOICES));
    fader->setGeometry(gdi.px(FADER));
    remove->setGeometry(gdi.px(REMOVE));
}
}  // namespace Gui::Cc
