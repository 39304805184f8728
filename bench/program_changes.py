#!/usr/bin/env python3
"""Program changes under held notes: bench/program_changes.py [ORVANE [CHANGES [SEED]]]

Renders CHANGES program changes (10000) in a bank of 1,000 while keys are pressed and released at random, with held notes
ringing on, by both ways of live input, and reads the events: no note may end while its key is down, and none may be left
when all keys are up. Then the same while a set list of 40 programs, and one that is missing, is played up and down: these
programs must have been loaded in that order.
"""

import random
import subprocess
import sys
import tempfile
import time
from pathlib import Path

PROGRAMS = 1000
ARPEGGIO_CHANNEL = 15  # whose notes end by themselves
LOADED = 0xEE  # each program sends its number as this pitch bend
ENTRIES = 40
KEYS = range(36, 96)
MOST_HELD = 8

orvane = sys.argv[1] if len(sys.argv) > 1 else "build/release/bin/orvane"
changes = int(sys.argv[2]) if len(sys.argv) > 2 else 10000
dice = random.Random(int(sys.argv[3]) if len(sys.argv) > 3 else 1)


def layer():
    kind = dice.randrange(6)
    if kind == 0:
        arpeggio = dice.choice(["ChordArpeggio", "UpArpeggio", "DownArpeggio"])
        return f'<Layer channel="{ARPEGGIO_CHANNEL}"><Arpeggio><{arpeggio} beat="12" length="6"/></Arpeggio></Layer>'
    ranges = ['minVelocity="64"', 'maxVelocity="63"', 'maxNote="B4"', 'minNote="C4"', "", ""]
    return f'<Layer channel="{dice.randrange(15)}" {dice.choice(ranges)} velocity="+{dice.randrange(20)}"/>'


def program(number):
    layers = "".join(layer() for _ in range(dice.randint(1, 4)))
    sent = (f'<Control cell="0,0" type="knob" value="{number}" max="16383" autoSend="true">'
            f'<Function midiEvent="Pitch Bend" output="0" channel="{LOADED & 15}"/></Control>')
    return f'<Program name="{number}"><Controls>{sent}</Controls><Layers>{layers}</Layers></Program>\n'


def set_list(programs):
    entries = [f'<Entry number="{number}" name="{number}"/>\n' for number in programs]
    entries.insert(ENTRIES // 2, '<Entry number="3" name="missing"/>\n')
    return f'<SetList on="true">\n{"".join(entries)}</SetList>\n'


def jumps():
    """What is done at each change, and the program that it loads."""
    for _ in range(changes):
        number = dice.randrange(PROGRAMS)
        yield number, number


def steps(programs):
    place = 0
    for step in range(changes):
        isUp = step // (ENTRIES - 1) % 2 == 0
        place += 1 if isUp else -1
        yield "up" if isUp else "down", programs[place]


def performance(selects):
    lines, held = [], []
    for step, select in enumerate(selects):
        at = 8 * step
        lines.append(f'{at} function <ChangeProgram type="{select}"/>')
        for pulse in (2, 4, 6):
            if held and (len(held) == MOST_HELD or dice.randrange(2)):
                key = held.pop(dice.randrange(len(held)))
                lines.append(f"{at + pulse} midi 0 80 {key:X} 40")
            else:
                key = dice.choice([each for each in KEYS if each not in held])
                held.append(key)
                lines.append(f"{at + pulse} midi 0 90 {key:X} {dice.randint(1, 127):X}")
    lines += [f"{8 * changes} midi 0 80 {key:X} 40" for key in held]
    return lines


def check(lines, events, delay, expected):
    """What is wrong: notes that ended while their keys were down, notes that are left, programs that were not loaded."""
    down, sounding, wrong, played, loaded = set(), set(), [], 0, []
    commands = iter(line.split() for line in lines if " midi " in line)
    command = next(commands, None)
    for event in events:
        pulse, output, status, note, velocity = map(int, event.split(","))
        while command and int(command[0]) + delay <= pulse:
            (down.add if command[3] == "90" else down.discard)(int(command[4], 16))
            command = next(commands, None)
        where = (output, status & 15, note)
        if status == LOADED:
            loaded.append(note + 128 * velocity)
        if status & 0xF0 == 0x90 and velocity:
            sounding.add(where)
            played += 1
        elif status & 0xE0 == 0x80:
            sounding.discard(where)
            if note in down and status & 15 != ARPEGGIO_CHANNEL:
                wrong.append(f"{event}: cut")
    if loaded[-changes:] != expected:
        wrong.append("other programs were loaded")
    return played, wrong + [f"{where} left" for where in sorted(sounding)]


with tempfile.TemporaryDirectory() as folder:
    here = Path(folder)
    (here / "programs.bnk").write_text(f"<Bank>\n{''.join(map(program, range(PROGRAMS)))}</Bank>\n")
    listed = [0] + [dice.randrange(PROGRAMS) for _ in range(ENTRIES - 1)]
    failed = False
    for what, made in ("program changes", list(jumps())), (f"steps in a set list of {ENTRIES}", list(steps(listed))):
        if what.startswith("steps"):
            (here / "programs.set").write_text(set_list(listed))
        lines = performance([select for select, _ in made])
        (here / "changes.perf").write_text("\n".join(lines) + "\n")
        for way, delay in ([], 1), (["--live-input"], -1):  # pulses from a command to the slice that plays its event
            start = time.monotonic()
            subprocess.run([orvane, "render", "--set", "KeepNotes=1", "--load", "programs.bnk", "--events", "events.csv",
                            "--tail", "100", *way, "changes.perf"], cwd=here, check=True)
            seconds = time.monotonic() - start
            events = (here / "events.csv").read_text().splitlines()[1:]
            played, wrong = check(lines, events, delay, [number for _, number in made])
            failed |= bool(wrong)
            result = wrong[:20] or ["none cut, none left"]
            print(f"{changes} {what}, {played} notes in {seconds:.0f} s:", *result)
sys.exit(failed)
