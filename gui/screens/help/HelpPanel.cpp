#include "gui/screens/help/HelpPanel.h"

#include <QPlainTextEdit>
#include <QPushButton>

#include "gui/framework/ManualButton.h"
#include "gui/framework/Properties.h"

namespace Gui::Help
{
namespace
{
constexpr QSize SIZE(960, 60);
constexpr QRect MANUAL_BUTTON(864, 0, 96, 24);

QString firstText()
{
    return HelpPanel::tr(
        "Play on the keys of the computer: the row of Q and the digits above it are one piano, the row of Z and the "
        "letters above it are another. Point at a control to read here what it does. Ctrl+Tab moves from playing to "
        "the controls, Escape back to playing.");
}
}  // namespace

HelpPanel::HelpPanel(OrvGuiIF&, Panel* around) : Panel(around), edit(new QPlainTextEdit(this))
{
    setPanelSize(SIZE);
    edit->setReadOnly(true);
    edit->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    edit->setFocusPolicy(Qt::TabFocus);  // a click must not take the focus from playing
    place(*edit, QRect({}, SIZE));
    edit->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    edit->setAccessibleName(tr("Help"));
    Property::set(*edit, Property::TEXT, true);
    edit->setPlainText(firstText());
    if (hasManualPage("index.htm")) addManualButton();
}

void HelpPanel::addManualButton()
{
    place(*edit, {0, 0, MANUAL_BUTTON.left() - GAP, SIZE.height()});
    auto* button = new QPushButton(tr("Manual"), this);
    place(*button, MANUAL_BUTTON);
    button->setFocusPolicy(Qt::TabFocus);
    button->setAccessibleName(tr("Manual"));
    Property::setHelp(*button, tr("Manual: opens the manual in your web browser."));
    connect(button, &QPushButton::clicked, this,
            [this] { openManual(*this, "", [this](const QString& problem) { edit->setPlainText(problem); }); });
}

void HelpPanel::showText(const std::string& text) { edit->setPlainText(QString::fromStdString(text)); }
}  // namespace Gui::Help
