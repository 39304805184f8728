#include "apps/orvane/Open.h"

#include "apps/orvane/Demonstration.h"
#include "host/common/Report.h"
#include "host/run/Run.h"
#include "host/session/Session.h"
#include "host/window/FindDesktop.h"
#include "host/window/RunWithWindow.h"

int open(Host::RunOptions options)
{
    const auto session = Host::Session::join(options, Host::reportOnStandardError);
    Host::checkRunOptions(options);
    const Host::Desktop desktop = Host::findDesktop();
    if (!desktop.platform.empty()) return Host::runWithWindow(options, desktop.platform);
    Host::reportOnStandardError("There is no window, because " + desktop.whyNot + ".");
    return Host::run(options, session ? nullptr : renderDemonstration);
}
