"""Plays the performances with much MIDI input twice, with its MIDI input on the way through the backend and on the direct way, and compares
the events. Their times differ: an event on the direct way is played a slice earlier. Commands are therefore moved
apart, so that no other command falls between the two times. Oscillators step at the same pulses either way, so notes
and all other events are compared each by themselves.

    both_ways.py ORVANE FOLDER
"""

import pathlib
import subprocess
import sys
import tempfile

APART = 4  # pulses
MUCH = 10  # commands


def moved_apart(lines):
    """The lines of a performance, sorted, each at least APART pulses after the one before."""
    commands = []
    for line in lines:
        first, _, rest = line.strip().partition(" ")
        if first.isdigit():
            commands.append((int(first), rest))
    commands.sort(key=lambda command: command[0])
    moved = []
    last, shift = -APART, APART
    for time, rest in commands:
        shift = max(shift, last + APART - time)
        last = time + shift
        moved.append(f"{last} {rest}")
    return moved


def events(orvane, performance, options):
    command = [orvane, "render", *options, "--events", "-", performance.name]
    result = subprocess.run(command, cwd=performance.parent, capture_output=True, text=True)
    if result.returncode != 0:
        raise SystemExit(f"{performance.name}: {result.stderr}")
    played = [line.split(",")[1:] for line in result.stdout.splitlines()[1:]]
    isNote = [int(event[1]) < 160 for event in played]
    return [[event for event, note in zip(played, isNote) if note == wanted] for wanted in (True, False)]


def main():
    orvane, folder = pathlib.Path(sys.argv[1]).resolve(), pathlib.Path(sys.argv[2])
    compared = 0
    for original in sorted(folder.glob("*.perf")):
        lines = original.read_text(encoding="utf-8").splitlines()
        if sum(" midi " in line for line in lines) < MUCH:
            continue
        options = lines[0].removeprefix("# options: ").split() if lines[0].startswith("# options: ") else []
        with tempfile.NamedTemporaryFile("w", dir=folder, prefix=".apart-", suffix=".perf") as copy:
            copy.write("\n".join(moved_apart(lines)) + "\n")
            copy.flush()
            path = pathlib.Path(copy.name)
            backend, direct = (events(orvane, path, options + way) for way in ([], ["--live-input"]))
        for one, other in zip(backend, direct):
            if one == other:
                compared += len(one)
                continue
            place = next((i for i, pair in enumerate(zip(one, other)) if pair[0] != pair[1]), min(len(one), len(other)))
            raise SystemExit(f"{original.name}: {one[place:place + 1]} through the backend, {other[place:place + 1]} directly")
    print(f"{compared} events are the same both ways")
    if compared < 100:
        raise SystemExit("too few")


main()
