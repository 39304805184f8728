#include "gui/framework/ManualButton.h"

#include <QBoxLayout>
#include <QCoreApplication>
#include <QFileInfo>
#include <QPushButton>
#include <QTimer>
#include <chrono>

#include "api/OrvUtils.h"
#include "gui/framework/Question.h"

namespace Gui
{
using namespace std::chrono_literals;
using Backend::OrvUtils;

namespace
{
constexpr auto LOOK_INTERVAL = 100ms;
constexpr int LOOKS = 100;
}  // namespace

bool hasManualPage(const char* page)
{
    const std::string manual = OrvUtils::pathIn(OrvUtils::getOrvProgDir(), "Manual");
    return QFileInfo(QString::fromStdString(OrvUtils::pathIn(manual, page))).isFile();
}

void openManual(QObject& owner, const char* page, const std::function<void(const QString& sentence)>& showProblem)
{
    auto* timer = new QTimer(&owner);
    const auto look = [timer, showProblem, findProblem = OrvUtils::showManual(page), looks = 0]() mutable {
        const std::string problem = findProblem();
        if (problem.empty() && ++looks < LOOKS) return;
        timer->stop();
        timer->deleteLater();
        if (!problem.empty()) showProblem(QString::fromStdString(problem));
    };
    QObject::connect(timer, &QTimer::timeout, timer, look);
    timer->start(LOOK_INTERVAL);
}

void addManualButton(QBoxLayout& row, const char* page)
{
    if (!hasManualPage(page)) return;
    auto* help = new QPushButton(QCoreApplication::translate("ManualButton", "Help"));
    help->setAutoDefault(false);
    QObject::connect(help, &QPushButton::clicked, help, [help, page] {
        openManual(*help, page,
                   [help](const QString& problem) { showMessage(*help->window(), help->text(), problem); });
    });
    row.addWidget(help);
}
}  // namespace Gui
