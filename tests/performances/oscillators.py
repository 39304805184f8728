#!/usr/bin/env python3
"""What a program's oscillators must play, from the formulas: oscillators.py NAME.prg SEED PULSES TIME on|off ...

Prints the event list of PULSES pulses in which all oscillators were started or stopped at each TIME; the beside lying
.events files come from here. Only oscillators of controllers and pitch bends that name an output and a channel."""
import math
import sys
import xml.etree.ElementTree as ElementTree


class Random:
    def __init__(self, seed):
        self.state = seed or 1

    def draw(self):
        self.state ^= self.state << 13 & 0xFFFFFFFF
        self.state ^= self.state >> 17
        self.state ^= self.state << 5 & 0xFFFFFFFF
        return self.state >> 17


class Oscillator:
    def __init__(self, element):
        def number(name, default): return int(element.get(name, default))
        self.type = element.get("type")
        self.speed, self.detail = number("speed", 480), abs(number("detail", 10)) or 1
        self.min, self.max = number("min", 0), number("max", 127)
        self.stop, self.output, self.channel = number("stopValue", -1), number("output", -1), number("channel", -1)
        self.message = element.get("midiMessage")
        self.playing, self.phase, self.count, self.last = False, 0.0, 0, -1

    def step(self, random):
        """The value to play at the next pulse, or None."""
        span, base = abs(self.max - self.min), min(self.min, self.max)
        steps = span + 1
        period = {"pulse": 2, "random": 1, "saw": steps}.get(self.type, 2 * math.pi)
        old = self.phase
        self.phase = old + (period / self.speed if self.speed else 0.0)
        if self.type == "sin":
            value = math.floor((math.sin(self.phase) + 1) * 0.5 * span + base + 0.5)
        elif self.type == "tri":
            value = math.floor((math.asin(math.sin(self.phase)) + math.pi / 2) / math.pi * span + base + 0.5)
        elif self.type == "saw":
            value = base + math.floor(self.phase + 0.5) % steps
        elif self.type == "pulse":
            value = base + int(self.phase) % 2 * span
        elif int(self.phase) % 2 != int(old) % 2:
            value = math.floor(random.draw() * (span / 32767) + base + 0.5)
        else:
            return None
        if self.max < self.min:
            value = 2 * base + span - value
        if value == self.last:
            return None
        self.count += 1
        if self.type in ("sin", "tri", "saw") and self.count % self.detail:
            return None
        self.last = value
        return value

    def event(self, ppq, value):
        if self.message == "Pitch Bend":
            return f"{ppq},{self.output},{224 + self.channel},{value & 127},{value >> 7 & 127}"
        controller = self.message.partition(",")[2]
        return f"{ppq},{self.output},{176 + self.channel},{controller},{value & 255}"


def main(path, seed, pulses, *switches):
    oscillators = [Oscillator(element) for element in ElementTree.parse(path).iter("Oscillator")]
    changes = dict(zip(map(int, switches[::2]), switches[1::2]))
    random, queued = Random(int(seed)), []
    print("ppq,output,status,d1,d2")
    for ppq in range(int(pulses)):
        due, queued = queued, []
        if ppq in changes:
            for oscillator in oscillators:
                if oscillator.stop >= 0 and changes[ppq] == "on":
                    due.append(oscillator.event(ppq, oscillator.stop))
                elif oscillator.stop >= 0:
                    queued.append(oscillator.event(ppq + 1, oscillator.stop))
                oscillator.playing = changes[ppq] == "on"
        for event in due:
            print(event)
        for oscillator in oscillators:
            value = oscillator.step(random) if oscillator.playing else None
            if value is not None and oscillator.message:
                print(oscillator.event(ppq, value))


main(*sys.argv[1:])
