#!/bin/sh
# The latency of live input: bench/live_latency.sh [BUILD] [EVENTS]
#
# Sends events to an input of Orvane and waits for each at an output (jack_midi_latency_test), in a JACK graph of 256
# frames, calm and with a busy loop for each core; then the same through the pass-through filter of x42-plugins. The
# test client itself needs one period, so 256.00 frames is the least. It needs jackd2, jalv and x42-plugins.
set -eu
orvane=${1:-build/release}/bin/orvane
events=${2:-2000}
export JACK_NO_START_SERVER=1 JACK_DEFAULT_SERVER="live$$"
folder=$(mktemp -d)
export XDG_DATA_HOME="$folder/data" XDG_CONFIG_HOME="$folder/config"
running=""
clean_up() {
    # shellcheck disable=SC2086  # one process per word
    kill $running 2>/dev/null || true
    wait
    rm -rf "$folder"
}
trap clean_up EXIT

in_background() { # reads what is written to descriptor 3, so that it does not end
    "$@" <"$folder/commands" >"$folder/${1##*/}.log" 2>&1 &
    running="$running $!"
}

# what is printed, bytes of an event, input, output. On a busy machine the server loses single events, which ends the
# test, through whichever program they go; then it is repeated.
measure() {
    for attempt in 1 2 3 4 5; do
        sleep 1  # the ports of the test before are gone
        result=$(jack_midi_latency_test -m "$2" -s "$events" "$3" "$4" 2>/dev/null) && break
    done
    echo "$1, $(echo "$result" | sed -n \
        -e 's/^Average latency: .* (\(.*\))/average \1/p' -e 's/^Peak MIDI jitter: .* (\(.*\))/, jitter \1/p' \
        -e 's/^Messages received: /, received /p' -e 's/^Xruns: /, xruns /p' | tr -d '\n'), attempt $attempt"
}

both() { # load
    measure "pass-through filter, $1, program changes" 2 filter:midiin filter:midiout
    measure "Orvane, $1, program changes" 2 "orvane:Orvane In" "orvane:Orvane Out"
    measure "Orvane, $1, note-offs" 3 "orvane:Orvane In" "orvane:Orvane Out"
}

mkfifo "$folder/commands"
in_background jackd -n "$JACK_DEFAULT_SERVER" -r -d dummy -r 48000 -p 256
exec 3>"$folder/commands"
jack_wait -w -t 5 >/dev/null
in_background "$orvane" run --client orvane --default-output "Orvane Out"
in_background jalv -n filter http://gareus.org/oss/lv2/midifilter#passthru
sleep 3
both "calm"
for _ in $(seq "$(nproc)"); do
    sh -c 'while :; do :; done' &
    running="$running $!"
done
both "busy"
