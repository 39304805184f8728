"""What the window costs, on an X server and in a JACK graph of its own: window_figures.py ORVANE MIDI_PEER [RUNS]

Prints, without a JACK server and with one (256 frames), the median of RUNS runs (5), with the minimum and the maximum:
the time from the start of the process to the first paint, and the CPU time of the process until then; the time from a
key event to the lit key on the piano and on the picture of the computer keyboard; the CPU time of 20 s in which nothing
happens; the resident memory after that, and its peak. It is not the first start of that user. Other programs that run
at the same time lengthen the times, and the CPU times a little."""
import os
import re
import signal
import statistics
import sys
import time
import unittest

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "../tests/e2e"))
sys.argv[1:3] = map(os.path.abspath, sys.argv[1:3])
RUNS = int(sys.argv[3]) if len(sys.argv) > 3 else 5
PRESSES = 21
IDLE_SECONDS = 20
import live
import window
from live import Program, Server, until
from screen import Screen


class Figures(window.Window):
    def setUp(self):
        live.Graph.setUp(self)
        self.environment["XDG_RUNTIME_DIR"] = self.folder + "/runtime"
        os.mkdir(self.folder + "/runtime", 0o700)
        self.display = window.Display(self, "1280x1024")
        self.environment["DISPLAY"] = self.display.name
        self.screen = Screen(self.display.name)
        self.addCleanup(self.screen.close)

    def cpu(self, program):
        """Milliseconds of the processor that all its threads have used."""
        return time.clock_gettime(~program.process.pid << 3 | 2) * 1e3

    def first_paint(self):
        """The program, its milliseconds until it is painted, and those of the processor."""
        begin = time.monotonic()
        program = Program(self, live.ORVANE, "--load", "keys.prg")
        while not self.screen.is_painted():
            self.assertIsNone(program.process.poll(), program.complained)
            time.sleep(0.001)
        times = (time.monotonic() - begin) * 1e3, self.cpu(program)
        self.started.append(program)
        return program, *times

    def memory(self, program):
        """Resident megabytes, now and at most."""
        with open(f"/proc/{program.process.pid}/status") as status:
            text = status.read()
        return [int(re.search(name + r":\s+(\d+)", text).group(1)) / 1000 for name in ("VmRSS", "VmHWM")]

    def settled(self, area):
        """The pixels of the area once they do not change any more."""
        before, now = None, self.screen.pixels(*area)
        while before != now:
            time.sleep(0.3)
            before, now = now, self.screen.pixels(*area)
        return now

    def lit_pixels(self):
        """One pixel of each picture that lights: the lowest, which is the piano's, and the highest, below the row of the
        program."""
        left, top, width, height = self.place()
        area = left, top + height // 4, width, height - height // 4
        dark = self.settled(area)
        self.screen.key(window.Q, 1)
        lit = self.settled(area)
        self.screen.key(window.Q, 0)
        self.settled(area)
        changed = [index for index, (one, other) in enumerate(zip(dark, lit)) if one != other]
        self.assertTrue(changed, "no key lights")
        return {name: (left + index % width, area[1] + index // width, 1, 1)
                for name, index in (("computer keyboard", changed[0]), ("piano", changed[-1]))}

    def until_changed(self, pixel, before):
        while self.screen.pixels(*pixel) == before:
            time.sleep(0.0002)

    def key_times(self):
        """Milliseconds from key events to the lit keys of each picture."""
        times = {}
        for name, pixel in self.lit_pixels().items():
            times[name] = []
            for press in range(PRESSES):
                time.sleep(0.2 + press * 0.0007)  # anywhere in a period
                dark = self.screen.pixels(*pixel)
                begin = time.monotonic()
                self.screen.key(window.Q, 1)
                self.until_changed(pixel, dark)
                times[name].append((time.monotonic() - begin) * 1e3)
                lit = self.screen.pixels(*pixel)
                self.screen.key(window.Q, 0)
                self.until_changed(pixel, lit)
        return times

    def show(self, name, unit, values):
        print(f"  {name:34} {statistics.median(values):7.2f} {unit:3} ({min(values):.2f} to {max(values):.2f})", flush=True)

    def measure(self, title):
        self.program("keys.prg")
        self.first_paint()[0].end(signal.SIGTERM)  # installs what a new user gets
        walls, cpus, idle, resident, peak, keys = [], [], [], [], [], {}
        for run in range(RUNS):
            until(lambda: not self.screen.is_painted(), "an empty display")
            program, wall, cpu = self.first_paint()
            walls.append(wall)
            cpus.append(cpu)
            time.sleep(2)
            if run == 0:
                self.await_focus()
                keys = self.key_times()
            before, since = self.cpu(program), time.monotonic()
            time.sleep(IDLE_SECONDS if run == 0 else 5)
            idle.append((self.cpu(program) - before) / (time.monotonic() - since) / 10)
            for values, value in zip((resident, peak), self.memory(program)):
                values.append(value)
            program.end(signal.SIGTERM)
        print(f"{title}, load of the machine {os.getloadavg()[0]:.1f}")
        self.show("first paint", "ms", walls)
        self.show("CPU time until then", "ms", cpus)
        for name, values in keys.items():
            self.show("key to lit key, " + name, "ms", values)
        self.show("idle, of a core", "%", idle)
        self.show("resident memory", "MB", resident)
        self.show("its peak", "MB", peak)

    def without(self):
        self.measure("Without JACK")

    def beside(self):
        self.server = Server(self, period=256)
        self.measure("With JACK")


if __name__ == "__main__":
    suite = unittest.TestSuite([Figures("without"), Figures("beside")])
    sys.exit(not unittest.TextTestRunner(verbosity=0).run(suite).wasSuccessful())
