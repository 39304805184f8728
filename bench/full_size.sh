#!/bin/sh
# The runs that are too long for ./check, with their figures: bench/full_size.sh [RUN...]
#
#     performer   10,000,000 steps of the restless performer, silent after every 400
#     saves       1,000 kills at random moments of saves
#     recovery    200 kills at random moments of edits, and what is restored
#     keys        from a key to the player, without saves and during saves into a bank of 1,000
#     changes     10,000 program changes under held notes, by both ways of live input
#     evening     a set list played in a window, a kill in the middle, and what was heard against what is rendered
#     restarts    100 kills and restarts of the JACK server under a stream of notes
#     fuzzers     each fuzzer 10,000,000 inputs or 5 minutes, two at a time
#     asan, tsan  every test under the sanitizer
#
# Without a name all of them, one after the other, which takes hours. It needs what ./check installs.
set -eu
cd "$(dirname "$0")/.."
export JACK_NO_START_SERVER=1
LOGS=build/full_size
mkdir -p $LOGS

build() { # preset, targets
    preset=$1
    shift
    cmake --preset "$preset" >"$LOGS/build.log"
    # shellcheck disable=SC2086
    nice -n 10 ninja -C "build/$preset" "$@" >>"$LOGS/build.log" || { tail -n 20 "$LOGS/build.log"; return 1; }
}

# Four at a time, because each mostly waits for its own threads.
performer() {
    build release test_engine || return 1
    for part in 0 1 2 3; do
        ORVANE_FIRST_PERFORMER=$((part * 6250 + 1)) ORVANE_PERFORMERS=6250 \
            nice -n 10 build/release/bin/test_engine --gtest_filter=Promise.NoNoteIsLeftSoundingWhateverChanged \
            >"$LOGS/performer$part.log" &
        running="${running:-} $!"
    done
    for one in $running; do
        wait "$one" || failed=yes
    done
    grep -hE 'performers of|Failure|seed' "$LOGS"/performer?.log
    [ -z "${failed:-}" ]
}

saves() {
    build release bench_saves || return 1
    nice -n 10 python3 bench/crash_saves.py build/release/bin/bench_saves 1000
}

recovery() {
    build release bench_recovery || return 1
    nice -n 10 python3 bench/crash_recovery.py build/release/bin/bench_recovery 200
}

keys() {
    build release bench_keys || return 1
    build/release/bin/bench_keys
}

restarts() {
    build release orvane midi_peer || return 1
    nice -n 10 python3 bench/endurance.py build/release/bin/orvane build/release/bin/midi_peer restarts 100
}

changes() {
    build release orvane || return 1
    nice -n 10 python3 bench/program_changes.py build/release/bin/orvane
}

evening() {
    build release orvane midi_peer || return 1
    nice -n 10 python3 bench/evening.py build/release/bin/orvane build/release/bin/midi_peer
}

fuzz_one() {
    log=$LOGS/${1##*/}.log
    kept=build/fuzz/corpus/${1##*/}
    mkdir -p "$kept"
    nice -n 19 "$1" "$kept" "fuzz/corpus/${1##*/}" -runs=10000000 -max_total_time=300 -verbosity=0 -print_final_stats=1 \
        -artifact_prefix="$LOGS/${1##*/}-" >"$log" 2>&1 && found="nothing found" ||
        found=$(grep -m 1 -E 'ERROR: |: runtime error: |deadly signal' "$log" || tail -n 1 "$log")
    echo "${1##*/}: $(sed -n 's/^stat::number_of_executed_units: *//p' "$log") inputs, $found"
    [ "$found" = "nothing found" ]
}

fuzzers() {
    build fuzz fuzzers || return 1
    printf '%s\n' build/fuzz/bin/Fuzz* | xargs -n 1 -P 2 bench/full_size.sh fuzz_one
}

sanitizer() {
    build "$1" || return 1
    nice -n 10 ctest --preset "$1" >"$LOGS/$1.log" 2>&1 && passed=yes || passed=no
    reports=$(grep -cE '(ERROR|WARNING): [A-Za-z]+Sanitizer|: runtime error: ' \
        "build/$1/Testing/Temporary/LastTest.log" || true)
    echo "$1: $(grep -E 'tests passed' "$LOGS/$1.log"), $reports reports of the sanitizer"
    [ "$passed" = yes ] && [ "$reports" = 0 ]
}
asan() { sanitizer asan; }
tsan() { sanitizer tsan; }

if [ "${1:-}" = fuzz_one ]; then
    fuzz_one "$2"
    exit
fi
status=0
[ $# -gt 0 ] || set -- saves recovery keys changes evening restarts performer fuzzers asan tsan
for run in "$@"; do
    echo "--- $run"
    "$run" || status=1
done
exit $status
