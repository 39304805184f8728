#!/bin/sh
# Has two strict readers that are not ours go over each MIDI file given; fails if either objects.
set -u
[ $# -gt 0 ] || { echo "usage: $0 FILE.mid..." >&2; exit 2; }
failed=0
for file in "$@"; do
    if ! complaint=$(mftext "$file" 2>&1 >/dev/null) || [ -n "$complaint" ]; then
        echo "$file: mftext: ${complaint:-failed}" >&2
        failed=1
    fi
    if ! complaint=$(/usr/bin/python3 - "$file" 2>&1 <<'PYTHON'
import sys
import mido
from mido.midifiles import midifiles

# mido takes an F7 escape for a sysex, whose bytes may not exceed 127; only there is it told to be lenient.
strict_read_sysex = midifiles.read_sysex
midifiles.read_sysex = lambda infile, delta, clip=False: strict_read_sysex(infile, delta, True)

song = mido.MidiFile(sys.argv[1])
ours = {1: 480, 0: 96}  # renderings, records
assert song.ticks_per_beat == ours.get(song.type), "neither a rendering nor a record by its header"
assert all(track[-1].type == "end_of_track" for track in song.tracks), "a track without its end"
PYTHON
    ); then
        echo "$file: mido: $(printf '%s\n' "$complaint" | tail -n 1)" >&2
        failed=1
    fi
done
exit $failed
