"""Live playing as its users meet it, in a JACK graph and without one:
live.py ORVANE MIDI_SOURCE MIDI_FILE_READERS.sh

Every test has a JACK server of its own. No test asserts a time: the limits only keep a hanging program from lasting."""
import glob
import os
import re
import signal
import subprocess
import sys
import tempfile
import time
import unittest
import uuid
import wave

ORVANE, MIDI_SOURCE, READERS = sys.argv[1:4]
PATIENCE = 60


def until(condition, what, patience=PATIENCE):
    limit = time.monotonic() + patience
    while not condition():
        if time.monotonic() > limit:
            raise AssertionError("timed out waiting for " + what)
        time.sleep(0.02)


def sounding(messages):
    """The notes whose last message is a note-on. A note-off may be repeated."""
    notes = {}
    for message in messages:
        if message[0] in "89":
            status, note, velocity = message.split()
            notes[status[1], note] = status[0] == "9" and velocity != "00"
    return sorted(note for (_, note), sounds in notes.items() if sounds)


def song(messages):
    """Without the note-offs of notes that do not sound, which are allowed."""
    kept, on = [], set()
    for message in messages:
        status, *note = message.split()[:2]
        if status[0] == "9":
            on.add((status[1], *note))
        elif status[0] == "8":
            if (status[1], *note) not in on:
                continue
            on.discard((status[1], *note))
        kept.append(message)
    return kept


class Program:
    """A program in the background, with what it has printed so far."""

    def __init__(self, test, *command, env=None, **options):
        self.out, self.err = (tempfile.TemporaryFile() for _ in range(2))
        self.process = subprocess.Popen(command, stdin=subprocess.PIPE, stdout=self.out, stderr=self.err,
                                        env=env or test.environment, cwd=test.folder, bufsize=0, **options)
        test.addCleanup(self.clean)

    def clean(self):
        if self.process.poll() is None:
            self.process.terminate()
            try:
                self.process.wait(5)
            except subprocess.TimeoutExpired:
                self.process.kill()
        self.process.wait()
        for file in (self.process.stdin, self.out, self.err):
            file.close()

    @staticmethod
    def text(file):
        return os.pread(file.fileno(), 1 << 24, 0).decode()

    @property
    def printed(self):
        return self.text(self.out)

    @property
    def complained(self):
        return self.text(self.err)

    def say(self, line):
        self.process.stdin.write(line.encode() + b"\n")

    def isPending(self, sent):
        """Whether the program has not yet taken a signal that it was sent."""
        with open(f"/proc/{self.process.pid}/status") as status:
            pending = re.search(r"^ShdPnd:\s*(\w+)", status.read(), re.M).group(1)
        return int(pending, 16) >> (sent - 1) & 1 == 1

    def end(self, sent=signal.SIGINT):
        self.process.send_signal(sent)
        return self.process.wait(PATIENCE)


class Server(Program):
    """A JACK server. A machine has room for eight, and one that was killed keeps its place until a server of its name
    ends properly."""

    def __init__(self, test, *options):
        self.test = test
        super().__init__(test, "jackd", "-r", "-n", test.environment["JACK_DEFAULT_SERVER"], "-d", "dummy",
                         *(options or ("-r", "48000", "-p", "1024")))
        until(lambda: "system:playback_1" in test.ports(), "the server")

    def stop(self):
        """Before its clients go: it waits for seconds on one that leaves meanwhile."""
        if self.process.poll() is None:
            self.process.send_signal(signal.SIGCONT)
            self.end(signal.SIGTERM)
        if self.process.returncode < 0:
            Server(self.test).end(signal.SIGTERM)
        for left in glob.glob("/dev/shm/jack_sem.*_" + self.test.environment["JACK_DEFAULT_SERVER"] + "_*"):
            os.remove(left)  # left over by killed clients


class Monitor(Program):
    """Receives messages at its port, NAME:input, and prints them as hexadecimal bytes.

    The server of a busy machine sometimes accepts a client and never runs it. So a monitor is tried with a probe, and
    replaced if it does not receive it; not where the player of the probe would disturb the test."""

    PROBE = "fe"
    TRIES = 4

    def __init__(self, test, name, tried=True):
        self.known = 0
        for _ in range(self.TRIES):
            super().__init__(test, "stdbuf", "-oL", "jack_midi_dump", name)
            until(lambda: name + ":input" in test.ports(), "the monitor")
            if not tried or self.is_run(test, name):
                return
            self.clean()
            until(lambda: name + ":input" not in test.ports(), "the deaf monitor's end")
        raise AssertionError("no monitor receives anything")

    def is_run(self, test, name):
        test.play(name + ":input", "0:" + self.PROBE)
        try:
            until(lambda: self.received == [self.PROBE], "the probe", 5)
        except AssertionError:
            return False
        self.known = 1
        return True

    @property
    def received(self):
        lines = (re.match(r"\s*\d+:((?: [0-9a-f]{2})+)", line) for line in self.printed.splitlines())
        return [line.group(1).strip() for line in lines if line][self.known:]

    def await_message(self, message):
        until(lambda: message in self.received, f"{message} among {self.received}")


class Graph(unittest.TestCase):
    def setUp(self):
        home = tempfile.TemporaryDirectory()  # a new user each time
        self.addCleanup(home.cleanup)
        self.folder = home.name
        self.environment = {**os.environ, "JACK_NO_START_SERVER": "1",
                            "JACK_DEFAULT_SERVER": "orvane" + uuid.uuid4().hex[:8],
                            "XDG_CONFIG_HOME": home.name + "/config", "XDG_DATA_HOME": home.name + "/data"}
        for name in ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"):
            self.environment.pop(name, None)
        self.server = None

    def tearDown(self):
        if self.server:
            self.server.stop()

    def serve(self):
        """Starts the server."""
        self.server = Server(self)

    def tool(self, *command, status=0):
        result = subprocess.run(command, capture_output=True, timeout=PATIENCE, env=self.environment)
        if status is not None:
            self.assertEqual(result.returncode, status, result.stderr.decode())
        return result.stdout.decode()

    def ports(self):
        return self.tool("jack_lsp", status=None).splitlines()

    def connections(self, port):
        lines = self.tool("jack_lsp", "-c", port, status=None).splitlines()
        return {line.strip() for line in lines if line.startswith(" ")}

    def orvane(self, *arguments):
        program = Program(self, ORVANE, "run", *arguments)
        until(lambda: "Ctrl+C" in program.printed or program.process.poll() is not None, "orvane")
        self.assertIsNone(program.process.poll(), program.complained)
        return program

    def play(self, port, *events):
        """A second player plays, each event as MILLISECONDS:BYTES."""
        self.tool(MIDI_SOURCE, "player", port, *events)


class Live(Graph):
    def test_messages_of_another_program_are_played_except_those_kept_in_the_host(self):
        self.serve()
        monitor = Monitor(self, "monitor")
        orvane = self.orvane("--client", "X", "--default-output", "Orvane Out", "--connect",
                             "X:Orvane Out=monitor:input", "--connect", "nobody:there=monitor:input")
        self.assertEqual(orvane.complained.count("\n"), 1, orvane.complained)
        self.assertIn("nobody:there", orvane.complained)
        messages = ["90 3c 64", "b0 07 7f", "c0 05", "d0 44", "e0 00 40", "a0 3c 01", "fa", "fb", "fc", "f2 01 02",
                    "80 3c 40", "ff"]
        kept = ["f8", "fe", "f0 01 02 f7"]
        self.play("X:Orvane In", *(f"{20 * at}:{message.replace(' ', '')}"
                                   for at, message in enumerate(messages[:6] + kept + messages[6:])))
        monitor.await_message("ff")
        self.assertEqual(song(monitor.received), messages)
        self.assertEqual(orvane.end(), 0)
        self.assertEqual(sounding(monitor.received), [])

    def test_every_midi_port_of_the_graph_is_a_port_of_its_own(self):
        self.serve()
        monitor = Monitor(self, "monitor")
        source = Program(self, MIDI_SOURCE, "keys", "-", "0:933c64", "100:833c40")
        until(lambda: "keys:out" in self.ports(), "the second player")
        listed = self.tool(ORVANE, "ports")
        self.assertEqual(listed.splitlines(), [
            "Back end: JACK", "Inputs", "   0  Orvane In", "   1  keys:out", "Outputs", "   0  Orvane Synthesizer",
            "   1  Orvane Out", "   2  monitor:input"])
        source.clean()
        source = Program(self, MIDI_SOURCE, "keys", "-", "200:933c64", "300:833c40")
        until(lambda: "keys:out" in self.ports(), "the second player")
        orvane = self.orvane("--default-output", "2")
        self.assertIn("monitor:input", self.connections("orvane:to monitor:input"))
        self.assertEqual(source.process.wait(PATIENCE), 0)
        monitor.await_message("80 3c 40")
        self.assertEqual(song(monitor.received), ["90 3c 64", "80 3c 40"], "the layer gives them its channel")
        self.assertEqual(orvane.end(), 0)

    def test_a_signal_ends_with_every_note_off(self):
        for sent in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
            with self.subTest(signal=sent.name):
                self.serve()
                thru, direct = Monitor(self, "thru"), Monitor(self, "direct")
                orvane = self.orvane("--default-output", "thru:input")
                self.play("orvane:Orvane In", "0:903c64", "10:913e64")
                output = next(line.split()[0] for line in orvane.printed.splitlines() if line.endswith("direct:input"))
                orvane.say(f"play {output} 9 -1 144 36 100")
                orvane.say(f"play {output} 0 -1 176 64 127")
                thru.await_message("90 3e 64")
                direct.await_message("b0 40 7f")
                self.assertEqual(orvane.end(sent), 0, orvane.complained)
                for monitor, expected in ((thru, ["80 3c", "80 3e"]), (direct, ["89 24", "b0 40 00"])):
                    for message in expected:
                        until(lambda: any(received.startswith(message) for received in monitor.received),
                              f"{message} among {monitor.received}")
                self.assertEqual(orvane.complained, "")
                self.startAfresh()

    def test_what_was_played_is_saved_by_a_command_and_by_a_signal_and_kept_for_the_next_run(self):
        self.serve()
        orvane = self.orvane("--display")
        orvane.say("play 1 0 -1 144 60 100")
        orvane.say("play 0 0 -1 192 7 0")
        until(lambda: "Orvane Out\t1\tNote On\t60 (C4)\t100\nOrvane Synthesizer\t1\tProgram Change" in orvane.printed,
              f"the display, {orvane.printed}")
        orvane.say("record take")
        until(lambda: orvane.complained.count("\n") == 2, "the takes")
        orvane.say("play 1 0 -1 144 62 100")
        until(lambda: "62 (D4)" in orvane.printed, "the display")
        self.assertEqual(orvane.end(), 0)
        self.assertIn("Orvane Out\t1\tNote Off\t62 (D4)", orvane.printed, "the end is displayed too")

        orvane = self.orvane()
        orvane.process.send_signal(signal.SIGUSR1)
        until(lambda: "saved " in orvane.complained, "the record of the run before")
        until(lambda: "nothing was played" in orvane.complained or orvane.process.send_signal(signal.SIGUSR1), "the end")
        self.assertEqual(orvane.end(), 0)
        takes = sorted(glob.glob(self.folder + "/*.mid"))
        self.assertEqual([re.sub("[0-9. -]+", " ", os.path.basename(take)) for take in takes],
                         ["record _Orvane Out mid", "take_Orvane Out mid", "take_Orvane Synthesizer mid"])
        subprocess.run(["sh", READERS, *takes], check=True)
        with open(takes[0], "rb") as take:
            events = take.read()
        self.assertTrue(b"\x90\x3e\x64" in events and b"\x80\x3e" in events, "the note and the end's note off")

    def startAfresh(self):
        self.tearDown()
        self.doCleanups()
        self.setUp()

    def test_programs_change_by_option_by_command_by_key_and_by_midi(self):
        program = """<Program name="{0}"><ComputerInput>
            <Key id="F9"><Function><Down><ChangeProgram type="up"/></Down></Function></Key>
            <Key id="Q"><Function><Down><MidiNoteOn note="C4"/></Down><Up><MidiNoteOff note="C4"/></Up></Function></Key>
            </ComputerInput><MidiInput><MidiEvent midiEvent="Program Change"><Translation>
            <ChangeProgram type="D1"/></Translation></MidiEvent></MidiInput>
            <Layers><Layer channel="{0}"/></Layers></Program>"""
        bank = self.folder + "/four.bnk"
        with open(bank, "w") as file:
            file.write("<Bank>" + "".join(program.format(number) for number in range(4)) + "</Bank>")
        self.serve()
        monitor = Monitor(self, "monitor")
        orvane = self.orvane("--client", "X", "--default-output", "Orvane Out", "--connect",
                             "X:Orvane Out=monitor:input", "--load", bank, "--number", "1")
        received = []

        def press(channel):
            orvane.say("key down Q")
            orvane.say("key up Q")
            for message in (f"9{channel} 3c 64", f"8{channel} 3c 64"):
                received.append(message)
                monitor.await_message(message)

        press(1)
        orvane.say("key down F9")
        orvane.say("key up F9")
        press(2)
        orvane.say('function <ChangeProgram type="0"/>')
        press(0)
        self.play("X:Orvane In", "0:c003", "50:903c64", "100:803c40")
        for message in ("93 3c 64", "83 3c 40"):
            received.append(message)
            monitor.await_message(message)
        orvane.say("key down F9")
        orvane.say("key up F9")  # the last program stays
        orvane.say('function <ChangeProgram type="down"/>')
        orvane.say("key down Q")
        orvane.say("key up Q")
        received += ["92 3c 64", "82 3c 64"]
        until(lambda: len(song(monitor.received)) >= len(received), "the program before the last")
        self.assertEqual(orvane.end(), 0)
        self.assertEqual(song(monitor.received), received)

    def test_a_disabled_output_ends_its_notes_and_can_be_enabled_again(self):
        self.serve()
        monitor = Monitor(self, "monitor")
        orvane = self.orvane("--connect", "Orvane Out=monitor:input")
        orvane.say("play 2 0 -1 144 60 100")
        monitor.await_message("90 3c 64")
        orvane.say("enable output 2 off")
        until(lambda: not sounding(monitor.received), "the note-off")
        until(lambda: not self.connections("orvane:to monitor:input"), "the end of the connection")
        orvane.say("play 2 0 -1 144 62 100")
        orvane.say("play 1 0 -1 176 1 1")
        monitor.await_message("b0 01 01")
        orvane.say("enable output 2 on")
        until(lambda: self.connections("orvane:to monitor:input"), "the connection")
        orvane.say("nonsense")
        until(lambda: "standard input:6: " in orvane.complained, "the complaint")
        # The list that says the output is back may still be under way when the first note is played.
        until(lambda: orvane.say("play 2 0 -1 144 65 100") or "90 41 64" in monitor.received, "a note")
        self.assertNotIn("90 3e 64", monitor.received)
        orvane.process.stdin.close()
        self.assertEqual(orvane.end(), 0)
        until(lambda: monitor.received[-1].startswith("80"), "the last note off")

    def test_a_disabled_input_is_not_received(self):
        self.serve()
        monitor = Monitor(self, "monitor")
        orvane = self.orvane("--default-output", "2")
        self.play("orvane:Orvane In", "0:903c64")
        monitor.await_message("90 3c 64")
        orvane.say("enable input 0 off")
        until(lambda: not sounding(monitor.received), "the note-off of the input")
        self.play("orvane:Orvane In", "0:904064")
        orvane.say("play 2 0 -1 176 1 1")
        monitor.await_message("b0 01 01")
        self.assertEqual([received[:5] for received in monitor.received], ["90 3c", "80 3c", "b0 01"])
        self.assertEqual(orvane.end(), 0)

    def test_the_built_in_synthesizer_sounds(self):
        self.serve()
        orvane = self.orvane("--tempo", "125")
        self.assertEqual(self.connections("orvane:Synthesizer Left"), {"system:playback_1"})
        self.assertEqual(self.connections("orvane:Synthesizer Right"), {"system:playback_2"})
        orvane.say("play -1 0 -1 144 60 120")
        with tempfile.TemporaryDirectory() as folder:
            path = os.path.join(folder, "sound.wav")
            self.tool("jack_rec", "-f", path, "-d", "1", "-b", "16", "orvane:Synthesizer Left",
                      "orvane:Synthesizer Right", status=None)
            with wave.open(path) as sound:
                samples = memoryview(sound.readframes(sound.getnframes())).cast("h")
        self.assertGreater(max(samples), 300, "silence")
        self.assertEqual(orvane.end(), 0)

    def test_a_server_that_dies_does_not_stop_the_program(self):
        for sent in (signal.SIGKILL, signal.SIGTERM):
            with self.subTest(signal=sent.name):
                self.serve()
                orvane = self.orvane("--default-output", "1")
                self.play("orvane:Orvane In", "0:903c64")
                self.server.end(sent)
                until(lambda: "server is gone" in orvane.complained, "the complaint")
                for command in ("play 1 0 -1 144 60 100", "enable output 1 off", "enable input 0 off", "nonsense"):
                    orvane.say(command)
                until(lambda: "standard input:4" in orvane.complained, "the complaint")
                self.assertEqual(orvane.end(), 0, orvane.complained)
                self.startAfresh()

    def test_with_a_server_that_hangs_it_ends_and_a_second_signal_ends_at_once(self):
        self.serve()
        patient, hurried = self.orvane("--client", "patient"), self.orvane("--client", "hurried")
        for one, other in (("patient", "hurried"), ("hurried", "patient")):
            until(lambda: f"{other}:Orvane Out" in self.connections(f"{one}:from {other}:Orvane Out"), "both to settle")
        self.server.process.send_signal(signal.SIGSTOP)
        hurried.process.send_signal(signal.SIGTERM)
        until(lambda: not hurried.isPending(signal.SIGTERM), "the first signal to be taken")
        self.assertEqual(hurried.end(signal.SIGINT), 128 + signal.SIGINT)
        self.assertEqual(patient.end(), 0)

    def test_without_a_server_it_says_so_and_runs(self):
        listed = self.tool(ORVANE, "ports")
        self.assertNotIn("Back end: JACK", listed)
        orvane = self.orvane("--tempo", "250", "--connect", "a:b=c:d")
        self.assertIn("a:b=c:d: there is no JACK server", orvane.complained)
        self.assertEqual("no MIDI ports" in orvane.complained, "Back end: none" in listed)
        self.assertEqual("synthesizer is silent" in orvane.complained, "Synthesizer (Couldn't Open)" in listed)
        orvane.say("play 0 0 -1 144 60 100")
        orvane.say("midi 0 90 3C")
        orvane.say("play 0")
        until(lambda: "standard input:3: " in orvane.complained, "the complaint")
        self.assertEqual(orvane.end(signal.SIGTERM), 0)

    def test_without_any_output_the_program_alone_renders_the_demonstration(self):
        listed = self.tool(ORVANE, "ports")
        if "Back end: none" not in listed or "Couldn't Open" not in listed:
            self.skipTest("this machine has an output")
        with tempfile.TemporaryDirectory() as folder:
            result = subprocess.run([ORVANE], cwd=folder, env=self.environment, capture_output=True, timeout=120)
            self.assertEqual(result.returncode, 0, result.stderr)
            self.assertIn(b"There is no window, because there is no display.\n", result.stderr)
            self.assertEqual(sorted(os.listdir(folder)), ["demonstration.mid", "demonstration.wav"])

    def test_a_wrong_option_is_one_line_and_status_2(self):
        self.serve()
        for arguments in (["--nonsense"], ["nonsense"], ["run", "--tempo", "19"], ["run", "--tempo", "251"],
                          ["run", "--tempo", "fast"], ["run", "--connect", "one"], ["run", "--connect", "=two"],
                          ["run", "--default-output", "Nowhere"], ["run", "--default-output", "2"],
                          ["run", "--load", "no.bnk"], ["run", "--load", ORVANE], ["run", "--number", "-1"],
                          ["run", "--client", "a:b"], ["run", "--client", ""], ["ports", "--nonsense"]):
            result = subprocess.run([ORVANE, *arguments], capture_output=True, timeout=PATIENCE, env=self.environment,
                                    stdin=subprocess.DEVNULL)
            self.assertEqual(result.returncode, 2, arguments)
            self.assertEqual(len(result.stderr.splitlines()), 1, result.stderr)
            self.assertEqual(result.stdout, b"")
        self.assertEqual(self.tool(ORVANE, "--version"), "Orvane 3.2\n")
        self.assertIn("--default-output", self.tool(ORVANE, "run", "--help"))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=1)
