#include "apps/orvane/Demonstration.h"

#include <iostream>

#include "host/common/Installer.h"
#include "host/render/Render.h"

int renderDemonstration()
{
    Host::RenderRequest request;
    request.inputs = {Host::findContent() / "demonstration.perf"};
    request.mid = "demonstration.mid";
    request.wav = "demonstration.wav";
    Host::render(request);
    std::cout << "The demonstration performance was rendered instead, to demonstration.mid and demonstration.wav.\n"
                 "\"orvane run\" plays live without sound.\n";
    return 0;
}
