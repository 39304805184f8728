#!/bin/sh
# Instructions per event (valgrind's callgrind; they repeat exactly): bench/instructions.sh [BUILD]
# The difference between three rounds and one is two rounds of the path alone.
set -eu
program=${1:-build/release}/bin/bench_instructions

count() {
    valgrind --tool=callgrind --callgrind-out-file=/dev/null "$program" "$1" "$2" 2>&1 |
        sed -n 's/.*Collected : \([0-9]*\).*/\1/p'
}

per() { # path, divisor of one round, what one of them is
    one=$(count "$1" 1)
    three=$(count "$1" 3)
    echo "$1: $(( (three - one) / 2 / $2 )) instructions per $3"
}

per named_output 65536 event
per default_output 65536 event
for layers in 1 4 16 64; do per notes_$layers 65536 "event, through $layers layers"; done
for layers in 1 4 16 64; do per mix_$layers 65536 "event, through $layers layers"; done
for layers in 1 4 16 64; do per kept_$layers 65536 "event, through $layers layers, while notes are kept"; done
for layers in 1 4 16 64; do per older_$layers 65536 "event, the same with a note held in older layers"; done
for layers in 1 16; do per controls_$layers 65536 "event, through $layers layers, followed by controls"; done
per idle_pulse 65536 pulse
for kind in idle chord up down up_down; do per arpeggios_$kind 65536 "pulse, with 16 arpeggios"; done
per sines_stopped 65536 "pulse, with 16 stopped sines"
for detail in thinned detailed; do per sines_$detail 65536 "pulse, with 16 sines of speed 480 and a controller each"; done
per reset 1 "ten note-ons, one slice and a reset"
