#!/usr/bin/python3
"""How well a MIDI clock of another process is followed, in a real JACK graph: bench/clock_live.py [BUILD]

The clock that Orvane sends is compared, frame by frame, with the received one without its jitter: the tempo of each
beat and the time of each tick, after the first four beats. The other process, which sends and receives, gets each tick
a period late. bench_clock_follow measures in virtual time, with the same result each time."""
import os
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
BIN = os.path.abspath(sys.argv[1] if len(sys.argv) > 1 else ROOT + "/build/release") + "/bin/"
sys.argv[1:] = [BIN + "orvane", BIN + "midi_peer"]
sys.path.insert(0, ROOT + "/tests/e2e")
from clock import Clocks, RATE, START, TICK, clock  # noqa: E402

SETTLED = 4 * 24


def ideal_frames(bpm, jitter, drift, ticks):
    at = 2 * jitter * RATE / 1000
    for tick in range(ticks):
        yield at
        at += RATE * 60 / (bpm + drift * tick / 24) / 24


class Measurement(Clocks):
    def runTest(self):
        self.serve()
        self.orvane("--clock-in", "Orvane In", "--clock-out", "Orvane Out")
        for bpm, jitter, drift, beats in ((120, 0, 0, 60), (120, 1, 0, 60), (120, 3, 0, 60), (180, 1, 0, 60),
                                          (100, 1, 0.5, 60), (120, 1, -2, 20)):
            record = self.source(*clock(bpm, jitter, drift, beats), to="orvane:Orvane In")
            began = next(frame for frame, message in record.sent if message == START)
            start = next(index for index, (_, message) in enumerate(record.received) if message == START)
            received = [frame - began for frame, message in record.received[start:] if message == TICK][:beats * 24]
            ideal = list(ideal_frames(bpm, jitter, drift, len(received)))
            late = [(one - other) / RATE * 1000 for one, other in zip(received, ideal)][SETTLED:]
            tempos = [60 * RATE / (received[tick + 24] - received[tick]) - 60 * RATE / (ideal[tick + 24] - ideal[tick])
                      for tick in range(SETTLED, len(received) - 24)]
            print(f"{bpm} bpm, {drift:+} a beat, jitter {jitter} ms: tempo within {max(map(abs, tempos)):.2f} bpm "
                  f"(mean {sum(map(abs, tempos)) / len(tempos):.3f}), ticks {min(late):+.2f} to {max(late):+.2f} ms")


if __name__ == "__main__":
    test = Measurement()
    result = test.run()
    for _, trouble in result.failures + result.errors + result.skipped:
        print(trouble)
    sys.exit(not result.wasSuccessful())
