"""Devices and servers that stop and return while Orvane plays: hotplug.py ORVANE MIDI_PEER"""
import os
import re
import shutil
import signal
import subprocess
import sys
import threading
import unittest

import live
from live import Monitor, Program, Server, sounding, until

PIPEWIRE_LIBRARY = "/usr/lib/x86_64-linux-gnu/pipewire-0.3/jack"


class Stream:
    """Plays notes on output 1 from a thread of its own, never more than one at a time, until it is stopped."""

    def __init__(self, orvane):
        self.stopping = threading.Event()
        self.sent = 0
        self.thread = threading.Thread(target=self.run, args=(orvane,))
        self.thread.start()

    def run(self, orvane):
        while not self.stopping.wait(0.005):
            self.sent += 1
            orvane.say(f"play 1 0 -1 144 {self.sent % 128} 100")
            self.stopping.wait(0.005)
            orvane.say(f"play 1 0 -1 128 {self.sent % 128} 64")

    def stop(self):
        self.stopping.set()
        self.thread.join()


class Stage(live.Graph):
    def restart(self, orvane, sent, server):
        """Ends the server, starts another one with `server()` and waits until Orvane has entered that."""
        before = orvane.complained
        self.server.end(sent)
        orvane.await_complaint("server is gone", before.count("server is gone") + 1)
        self.server = server()
        orvane.await_complaint("server is back", before.count("server is back") + 1)
        until(lambda: "server is back" in orvane.complained.splitlines()[-1], "the return")

    def monitor(self, name="monitor", connected_to=None):
        monitor = Monitor(self, name)
        if connected_to:
            until(lambda: connected_to in self.connections(f"{name}:input"), f"the connection of {name}")
        return monitor

    def stream(self, orvane):
        stream = Stream(orvane)
        self.addCleanup(stream.stop)
        return stream

    def expect_more(self, monitor):
        count = len(monitor.received)
        until(lambda: len(monitor.received) > count + 20, "the stream")

    def end(self, orvane, *monitors):
        self.assertEqual(orvane.end(), 0, orvane.complained)
        for monitor in monitors:
            self.assertEqual(sounding(monitor.received), [])

    def keys(self, port, note):
        """A keyboard that sends some note-ons of a note, each with a higher velocity, and no note-off."""
        note_ons = (f"{9600 * count}:90{note}{0x40 + count:02x}" for count in range(10))
        return self.hold(*note_ons, to=port)

    def numbers(self, direction):
        with open(f"{self.folder}/data/Brinlow Software/Orvane 3/Midi {direction}.txt") as file:
            return file.read().splitlines()


class InJack(Stage):
    def test_a_device_that_is_plugged_in_again_under_load_keeps_its_number(self):
        self.serve()
        orvane = self.orvane("--default-output", "Orvane Out")
        stream = self.stream(orvane)
        for _ in range(3):
            bells = self.monitor("bells", connected_to="orvane:to bells:input")
            until(lambda: orvane.say("play 2 0 -1 144 72 100") or "90 48 64" in bells.received, "a note on the bells")
            self.assertEqual(set(bells.received) - {"80 48 40"}, {"90 48 64"}, "nothing of the stream")
            bells.clean()
            until(lambda: "orvane:to bells:input" not in self.ports(), "the end of the bells")
        bells = self.monitor("bells", connected_to="orvane:to bells:input")
        self.monitor("drums", connected_to="orvane:to drums:input")
        until(lambda: "80 48 40" in bells.received, "the note-off of the note that sounded when they were unplugged")
        stream.stop()
        self.end(orvane, bells)
        self.assertEqual(self.numbers("Outputs"), ["Orvane Synthesizer", "Orvane Out", "bells:input", "drums:input"])

    def test_a_keyboard_unplugged_or_disconnected_with_keys_down_leaves_nothing_sounding(self):
        orvane, monitor = self.playing()
        for to, note, end in (("-", "3c", Program.clean), ("-", "40", Program.clean),
                              ("orvane:Orvane In", "43", Program.clean),
                              ("orvane:Orvane In", "45",
                               lambda keys: self.tool("jack_disconnect", "keys:output", "orvane:Orvane In"))):
            keys = self.keys(to, note)
            # The last note-on: once disconnected, the keyboard gets a port of its own.
            monitor.await_message(f"90 {note} 49")
            until(lambda: to != "-" or "orvane:from keys:output" in self.connections("keys:output"), "the connection")
            end(keys)
            until(lambda: not sounding(monitor.received), "the end of the note")
            note_ons = [received for received in monitor.received if received.startswith("90 " + note)]
            self.assertEqual(len(set(note_ons)), len(note_ons), "connected by the user, it is not received twice")
            keys.clean()
        self.assertEqual(self.numbers("Inputs"), ["Orvane In", "keys:output"])
        self.end(orvane, monitor)

    def test_numbers_and_choices_are_kept_for_the_next_run(self):
        self.serve()
        both = [self.monitor(name) for name in ("bells", "drums")]
        orvane = self.orvane()
        orvane.say("enable output 2 off")
        until(lambda: "orvane:to bells:input" not in self.connections("bells:input"), "the bells to be off")
        self.assertEqual(orvane.end(), 0, orvane.complained)
        for monitor in both:
            monitor.clean()

        orvane = self.orvane()
        self.assertIn("   2  bells:input (Not Enabled) (Not Found)\n   3  drums:input (Not Found)\n", orvane.printed)
        self.monitor("drums", connected_to="orvane:to drums:input")
        bells = self.monitor("bells")
        until(lambda: "orvane:to bells:input" in self.ports(), "the bells")
        self.assertNotIn("orvane:to bells:input", self.connections("bells:input"))
        orvane.say("enable output 2 on")
        until(lambda: "orvane:to bells:input" in self.connections("bells:input"), "the bells to be on")
        until(lambda: orvane.say("play 2 0 -1 176 7 1") or bells.received, "the bells")
        self.end(orvane)
        self.assertIn("   3  drums:input", self.tool(live.ORVANE, "ports"))

    def test_a_server_that_dies_is_replaced_by_one_with_another_period_and_rate(self):
        self.serve()
        orvane = self.orvane("--client", "X", "--default-output", "Orvane Out")
        monitor = self.monitor()
        self.tool("jack_connect", "X:Orvane Out", "monitor:input")
        stream = self.stream(orvane)
        keys = self.keys("X:Orvane In", "3c")
        monitor.await_message("90 3c 40")
        for sent, rate, period in ((signal.SIGKILL, 44100, 2048), (signal.SIGTERM, 96000, 4096),
                                   (signal.SIGKILL, 48000, 4096)):
            def server():
                for program in (monitor, keys):
                    program.clean()
                return Server(self, rate, period)
            for attempt in range(4):
                self.restart(orvane, sent, server)
                self.assertIn(f"{rate} Hz, {period} frames", orvane.complained.splitlines()[-1])
                monitor = self.monitor(connected_to="X:Orvane Out")
                if live.comes_true(lambda: len(monitor.received) > 20):
                    break
                sent = signal.SIGKILL
            else:
                self.fail("no server ran")
            self.assertEqual(self.connections("X:Synthesizer Left"), {"system:playback_1"})

        def takes_period():  # a busy server may refuse it
            return subprocess.run(["jack_bufsize", "1024"], capture_output=True, env=self.environment).returncode == 0
        until(takes_period, "the other period")
        self.expect_more(monitor)
        stream.stop()
        self.end(orvane, monitor)

    def test_a_server_that_hangs_stops_no_slice_and_no_note_is_lost(self):
        self.serve()
        monitor = self.monitor()
        orvane = self.orvane("--display", "--connect", "Orvane Out=monitor:input")
        for turn in range(1, 3):
            self.server.process.send_signal(signal.SIGSTOP)
            orvane.await_complaint("server hangs", turn)
            for event, message in (("Note On", "144 60 100"), ("Note Off", "128 60 64")):
                orvane.say("play 1 0 -1 " + message)
                until(lambda: orvane.printed.count(event) == turn, f"the {event} to be played without the server")
            self.server.process.send_signal(signal.SIGCONT)
            orvane.await_complaint("server runs again", turn)
            until(lambda: monitor.received.count("90 3c 64") == turn and not sounding(monitor.received), "the note")
        orvane.say("play 1 0 -1 144 62 100")
        monitor.await_message("90 3e 64")

    def test_a_feedback_loop_is_reported_and_does_not_block_other_notes(self):
        self.write("two.bnk",  # each input message is sent twice
                   '<Bank><Program><Layers><Layer channel="0"/><Layer channel="0"/></Layers></Program></Bank>')
        self.serve()
        monitor = self.monitor()
        orvane = self.orvane("--default-output", "Orvane Out", "--load", "two.bnk", "--status")
        until(lambda: "orvane:to monitor:input" in self.connections("monitor:input"), "the monitor")
        self.tool("jack_connect", "orvane:Orvane Out", "orvane:Orvane In")
        orvane.await_complaint('A feedback loop: "Orvane Out" is connected to "Orvane In"')
        flood = [f"{6 * at}:b0{at % 100:02x}40" for at in range(800)]
        self.play("orvane:Orvane In", "0:903c64", *flood, "9600:803c64")
        orvane.await_complaint("Is an output connected to this input?")
        until(lambda: re.search(r"Orvane In: \d+ limited", orvane.printed), "what was left out")
        orvane.say("play 2 0 -1 144 72 100", "play 2 0 -1 128 72 64")
        monitor.await_message("80 48 40")
        self.assertEqual(len(orvane.complaints), 2, orvane.complained)
        self.tool("jack_disconnect", "orvane:Orvane Out", "orvane:Orvane In")
        until(lambda: "| 0 notes |" in orvane.printed.splitlines()[-1], "the end of all notes")

    def test_the_status_is_a_line_each_second(self):
        self.serve()
        orvane = self.orvane("--status", "--tempo", "96", "--default-output", "Orvane Out")
        orvane.say("play 1 0 -1 144 60 100")
        line = re.compile(r"^JACK 48000 Hz, 4096 frames, load \d+ %, \d+ xruns \| in 1 of 1, out 2 of 2 \| 96 bpm \| "
                          r"slice \d+/\d+/\d+ us, \d+ late, lock held \d+ us \| 1 notes \| real time: [a-z, ]+$", re.M)
        until(lambda: len(line.findall(orvane.printed)) >= 2, "two lines in " + orvane.printed)
        self.server.end(signal.SIGKILL)
        until(lambda: "\nno JACK server | in 0 of 1, out 0 of 2 | 96 bpm" in orvane.printed, "a line without a server")
        self.assertEqual(orvane.end(), 0, orvane.complained)
        self.assertRegex(orvane.printed.splitlines()[-1], r"^In total \d+ slices, \d+/\d+/\d+ us$")

    def test_an_orvane_that_is_suspended_leaves_nothing_sounding(self):
        self.serve()
        monitor = self.monitor()
        orvane = self.orvane("--connect", "Orvane Out=monitor:input")
        stream = self.stream(orvane)
        for _ in range(3):
            orvane.process.send_signal(signal.SIGSTOP)
            sent = stream.sent
            until(lambda: stream.sent > sent + 10, "commands that wait")
            orvane.process.send_signal(signal.SIGCONT)
            self.expect_more(monitor)
        stream.stop()
        self.end(orvane, monitor)


class PipeWire(Program):
    """A PipeWire server."""

    def __init__(self, test):
        super().__init__(test, "pipewire", env={**test.environment, "LD_LIBRARY_PATH": ""})
        until(lambda: subprocess.run(["jack_lsp"], capture_output=True, env=test.environment).returncode == 0,
              "the server")

    def stop(self):
        self.clean()


@unittest.skipUnless(shutil.which("pipewire") and os.path.isdir(PIPEWIRE_LIBRARY), "PipeWire is not installed")
class InPipeWire(Stage):
    def setUp(self):
        super().setUp()
        self.environment |= {"XDG_RUNTIME_DIR": self.folder, "HOME": self.folder, "LD_LIBRARY_PATH": PIPEWIRE_LIBRARY}

    def test_devices_and_the_server_return(self):
        self.server = PipeWire(self)
        orvane = self.orvane("--default-output", "Orvane Out")
        for sent in (signal.SIGKILL, signal.SIGTERM):
            monitor = self.monitor(connected_to="orvane:to monitor:input")
            if sent == signal.SIGKILL:
                self.tool("jack_connect", "orvane:Orvane Out", "monitor:input")
            until(lambda: "orvane:Orvane Out" in self.connections("monitor:input"), "the connection")
            keys = self.keys("-", "3c")
            until(lambda: sounding(monitor.received) == ["3c"], "the note")
            keys.clean()
            until(lambda: not sounding(monitor.received), "the end of the note")
            monitor.clean()
            self.restart(orvane, sent, lambda: PipeWire(self))
        self.assertEqual(self.numbers("Inputs"), ["Orvane In", "keys:output"])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[3:], verbosity=1)
