#include "gui/framework/ManualButton.h"

#include <QBoxLayout>
#include <QCoreApplication>
#include <QFileInfo>
#include <QPushButton>

#include "api/OrvUtils.h"
#include "gui/framework/Question.h"

namespace Gui
{
using Backend::OrvUtils;

bool hasManualPage(const char* page)
{
    const std::string manual = OrvUtils::pathIn(OrvUtils::getOrvProgDir(), "Manual");
    return QFileInfo(QString::fromStdString(OrvUtils::pathIn(manual, page))).isFile();
}

void addManualButton(QBoxLayout& row, const char* page)
{
    if (!hasManualPage(page)) return;
    auto* help = new QPushButton(QCoreApplication::translate("ManualButton", "Help"));
    help->setAutoDefault(false);
    QObject::connect(help, &QPushButton::clicked, help, [help, page] {
        const std::string problem = OrvUtils::showManual(page);
        if (!problem.empty()) showMessage(*help->window(), help->text(), QString::fromStdString(problem));
    });
    row.addWidget(help);
}
}  // namespace Gui
