#include "gui/framework/ManualButton.h"

#include <QBoxLayout>
#include <QCoreApplication>
#include <QFileInfo>
#include <QPushButton>

#include "backend/persistence/OrvUtils.h"

namespace Gui
{
using Backend::OrvUtils;

void addManualButton(QBoxLayout& row, const char* page)
{
    const std::string manual = OrvUtils::pathIn(OrvUtils::getOrvProgDir(), "Manual");
    if (!QFileInfo(QString::fromStdString(OrvUtils::pathIn(manual, page))).isFile()) return;
    auto* help = new QPushButton(QCoreApplication::translate("ManualButton", "Help"));
    help->setAutoDefault(false);
    QObject::connect(help, &QPushButton::clicked, [page] { OrvUtils::showManual(page); });
    row.addWidget(help);
}
}  // namespace Gui
