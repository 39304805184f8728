#pragma once

#include <memory>
#include <string>

#include "platform/Export.h"

/// A document that the desktop was asked to open with its program for it, which runs on when this object is gone.
class ORV_API OpenedDocument
{
public:
    /// Asks `xdg-open` and does not wait for it.
    explicit OpenedDocument(const std::string& path);

    /// A clause that says why the document cannot be opened: "xdg-open is not installed". Empty while no reason is
    /// known; `xdg-open` may search for a program for some seconds. Never waits.
    std::string getProblem();

private:
    std::string problem;
    std::shared_ptr<const int> result;  // the stream with the exit status of `xdg-open`
};
