"""Memory and losses in long runs: endurance.py ORVANE MIDI_PEER [minutes M | restarts N | virtual M]

minutes M: M minutes of a stream of notes, with devices that are plugged in and unplugged; prints the status line and
the memory once a minute. restarts N: the JACK server is killed and started again N times during the stream. virtual M:
renders M minutes of virtual time offline and prints time and memory. At the end no note may sound."""
import os
import re
import resource
import signal
import subprocess
import sys
import time
import unittest

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "../tests/e2e"))
sys.argv[1:3] = map(os.path.abspath, sys.argv[1:3])
ORVANE, KIND, AMOUNT = sys.argv[1], sys.argv[3], int(sys.argv[4])
import hotplug
from hotplug import Stream, sounding
from live import Monitor, Server, until


class Endurance(hotplug.Stage):
    def start(self):
        self.serve()
        orvane = self.orvane("--client", "X", "--default-output", "Orvane Out", "--status")
        self.tool("jack_lsp")
        return orvane, Stream(orvane)

    def memory(self, program):
        with open(f"/proc/{program.process.pid}/status") as status:
            return int(re.search(r"VmRSS:\s+(\d+)", status.read()).group(1))

    def finish(self, orvane, stream, monitor, received_before=()):
        stream.stop()
        self.assertEqual(orvane.end(), 0, orvane.complained)
        self.assertEqual(sounding([*received_before, *monitor.received]), [])
        print(orvane.printed.splitlines()[-1])

    def minutes(self):
        orvane, stream = self.start()
        monitor = self.monitor()
        self.tool("jack_connect", "X:Orvane Out", "monitor:input")
        begin = time.monotonic()
        while time.monotonic() < begin + 60 * AMOUNT:
            minute = (time.monotonic() - begin) / 60
            print(f"{minute:5.1f} min, {self.memory(orvane)} kB: {orvane.printed.splitlines()[-1]}", flush=True)
            until_then = begin + 60 * (int(minute) + 1)
            while time.monotonic() < until_then:
                guest = Monitor(self, "guest")
                time.sleep(2)
                guest.clean()
                time.sleep(2)
        print(f"at the end {self.memory(orvane)} kB")
        self.finish(orvane, stream, monitor)

    def receives(self, monitor):
        try:
            until(lambda: len(monitor.received) > 20, "the stream", 3)
        except AssertionError:
            return False
        return True

    def restarts(self):
        orvane, stream = self.start()
        monitor = self.monitor()
        self.tool("jack_connect", "X:Orvane Out", "monitor:input")
        gaps, received, ignored = [], [], 0  # by all monitors together, as by one receiver
        for turn in range(AMOUNT + 1):
            while not self.receives(monitor):  # a busy server sometimes accepts a client and never runs it
                received += [f"80 {note} 40" for note in sounding(received)]
                ignored += 1
                monitor.clean()
                monitor = self.monitor(connected_to="X:Orvane Out")
            if turn == AMOUNT:
                break
            started = []

            def server():
                received.extend(monitor.received)
                monitor.clean()
                server = Server(self)
                started.append(time.monotonic())
                return server
            self.restart(orvane, signal.SIGKILL if turn % 2 else signal.SIGTERM, server)
            gaps.append(time.monotonic() - started[0])
            monitor = self.monitor(connected_to="X:Orvane Out")
        print(f"{AMOUNT} restarts; back in the graph after {sorted(gaps)[len(gaps) // 2]:.2f} s in the middle, "
              f"{max(gaps):.2f} s at most; {self.memory(orvane)} kB; {ignored} monitors were never run")
        self.finish(orvane, stream, monitor, received)

    def virtual(self):
        with open(self.folder + "/long.perf", "w") as file:
            for beat in range(AMOUNT * 120):
                file.write(f"{beat * 480} play 1 0 -1 144 {beat % 128} 100\n")
                file.write(f"{beat * 480 + 240} play 1 0 -1 128 {beat % 128} 64\n")
        begin = time.monotonic()
        self.tool(ORVANE, "render", self.folder + "/long.perf", "--mid", self.folder + "/long.mid")
        print(f"{AMOUNT} minutes in {time.monotonic() - begin:.1f} s, "
              f"{resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss} kB at most")


if __name__ == "__main__":
    suite = unittest.TestSuite([Endurance(KIND)])
    sys.exit(not unittest.TextTestRunner(verbosity=0).run(suite).wasSuccessful())
