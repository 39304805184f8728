#pragma once

/// What `orvane` does where nothing can be heard: renders the demonstration performance. Returns the exit status.
int renderDemonstration();
