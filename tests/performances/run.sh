#!/bin/sh
# Plays one performance file and compares its events with the list beside it: run.sh ORVANE NAME.perf
# The options of the renderer stand in the file's first line: `# options: --outputs 3 --slice 10`.
set -eu
orvane=$1
performance=$2
expected=${performance%.perf}.events
options=$(sed -n '1s/^# options: //p' "$performance")

# shellcheck disable=SC2086  # one word per option
"$orvane" render $options --events - "$performance" | diff -u "$expected" -
