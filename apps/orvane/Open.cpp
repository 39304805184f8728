#include "apps/orvane/Open.h"

#include "apps/orvane/Demonstration.h"
#include "host/run/Run.h"
#include "host/terminal/StandardError.h"
#include "host/window/FindDesktop.h"
#include "host/window/RunWithWindow.h"

int open(Host::RunOptions options)
{
    const auto session = Host::openSession(options);
    Host::checkRunOptions(options);
    const Host::Desktop desktop = Host::findDesktop();
    if (!desktop.platform.empty()) return Host::runWithWindow(options, desktop.platform);
    Host::reportOnStandardError("There is no window, because " + desktop.whyNot + ".");
    return Host::run(options, session ? nullptr : renderDemonstration);
}
