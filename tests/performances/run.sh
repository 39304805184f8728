#!/bin/sh
# Plays one performance file and compares its events with the list beside it: run.sh ORVANE NAME.perf
# The options of the renderer stand in the file's first line: `# options: --outputs 3 --load NAME.prg`.
set -eu
orvane=$1
cd "$(dirname "$2")"
performance=$(basename "$2")
options=$(sed -n '1s/^# options: //p' "$performance")

# shellcheck disable=SC2086  # one word per option
"$orvane" render $options --events - "$performance" | diff -u "${performance%.perf}.events" -
