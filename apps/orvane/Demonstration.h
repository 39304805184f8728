#pragma once

/// Renders the demonstration performance into the current folder, for a machine without any output. Returns the exit
/// status.
int renderDemonstration();
