"""Live playing as its users meet it, in a JACK graph and without one: live.py ORVANE MIDI_PEER

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

ORVANE, MIDI_PEER = sys.argv[1:3]
PATIENCE = 120


def until(condition, what, patience=PATIENCE):
    limit = time.monotonic() + patience
    while not condition():
        if time.monotonic() > limit:
            raise AssertionError("timed out waiting for " + what)
        time.sleep(0.02)


def comes_true(condition):
    """A busy server may lose an event, or the wake-up of a client, and hang for good."""
    try:
        until(condition, "the graph", 30)
    except AssertionError:
        return False
    return True


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
                self.process.wait(20)
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

    @property
    def complaints(self):
        """Without those of a server that hung for a while, as a busy one does."""
        return [line for line in self.complained.splitlines() if not re.search("JACK server (hangs|runs again)", line)]

    def say(self, *lines):
        self.process.stdin.write("".join(line + "\n" for line in lines).encode())

    def await_start(self, sign):
        until(lambda: sign in self.printed or self.process.poll() is not None, "the start: " + sign)

    def await_complaint(self, text, count=1):
        until(lambda: self.complained.count(text) >= count, f"'{text}' in {self.complained}")

    def has_pending(self, sent):
        """Whether the program has not yet taken a signal that it was sent."""
        with open(f"/proc/{self.process.pid}/status") as status:
            pending = re.search(r"^ShdPnd:\s*(\w+)", status.read(), re.M).group(1)
        return int(pending, 16) >> (sent - 1) & 1 == 1

    def end(self, sent=signal.SIGINT):
        self.process.send_signal(sent)
        return self.process.wait(PATIENCE)


class Server(Program):
    """A JACK server. Its periods are long, and in each it waits for its clients, so that no message is lost on a busy
    machine. There is room for eight, and one that was killed keeps its place until a server of its name ends
    properly."""

    def __init__(self, test, rate=48000, period=4096):
        self.test = test
        for _ in range(4):
            super().__init__(test, "jackd", "-S", "-r", "-n", test.environment["JACK_DEFAULT_SERVER"], "-d", "dummy",
                             "-r", str(rate), "-p", str(period))
            if comes_true(test.is_served):
                return
            complained = self.complained
            self.clean()
        test.fail("no server starts: " + complained)

    def stop(self):
        """Before its clients go: it waits for seconds on one that leaves meanwhile."""
        if self.process.poll() is None:
            self.process.send_signal(signal.SIGCONT)
            self.end(signal.SIGTERM)
        if self.process.returncode < 0:
            Server(self.test).end(signal.SIGTERM)
        for left in glob.glob("/dev/shm/jack_sem.*_" + self.test.environment["JACK_DEFAULT_SERVER"] + "_*"):
            os.remove(left)  # left over by killed clients


class Peer(Program):
    """Another program in the graph, with what it sent and received; see midi_peer.cpp."""

    def __init__(self, test, name, *events, to="none", source="none"):
        super().__init__(test, MIDI_PEER, name, to, source, *map(str, events))
        self.await_start("ready")

    def record(self, verb):
        """The messages so far with their frames."""
        lines = (line.split() for line in self.printed.rpartition("\n")[0].splitlines())
        return [(int(line[1]), " ".join(line[2:])) for line in lines if line[0] == verb]

    @property
    def received(self):
        return [message for _, message in self.record("received")]

    def await_message(self, message):
        """Or the beginning of one."""
        until(lambda: any(received.startswith(message) for received in self.received),
              f"{message} among {self.received}")


class Monitor(Peer):
    """Receives messages at its port, NAME:input."""

    def __init__(self, test, name="monitor"):
        super().__init__(test, name, source="-")


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
        self.started = []

    def tearDown(self):
        """What still plays ends properly."""
        try:
            for orvane in self.started:
                if orvane.process.poll() is None:
                    self.assertEqual(orvane.end(), 0, orvane.complained)
        finally:
            if self.server:
                self.server.stop()

    def serve(self):
        """Starts the server."""
        self.server = Server(self)

    def tool(self, *command, status=0, patience=PATIENCE):
        result = subprocess.run(command, capture_output=True, timeout=patience, env=self.environment)
        if status is not None:
            self.assertEqual(result.returncode, status, result.stderr.decode())
        return result.stdout.decode()

    def ports(self):
        return self.tool("jack_lsp", status=None).splitlines()

    def is_served(self):
        try:
            return "system:playback_1" in self.tool("jack_lsp", status=None, patience=20)
        except subprocess.TimeoutExpired:
            return False

    def connections(self, port):
        time.sleep(0.5)  # a synchronous server changes no connection while clients come and go
        lines = self.tool("jack_lsp", "-c", port, status=None).splitlines()
        return {line.strip() for line in lines if line.startswith(" ")}

    def write(self, name, text):
        path = self.folder + "/" + name
        with open(path, "w") as file:
            file.write(text)
        return path

    def orvane(self, *arguments):
        program = Program(self, ORVANE, "run", *arguments)
        program.await_start("Ctrl+C")
        self.assertIsNone(program.process.poll(), program.complained)
        self.started.append(program)
        return program

    def playing(self, *arguments):
        """In a graph, with a monitor of its output."""
        self.serve()
        monitor = Monitor(self)
        return self.orvane("--default-output", "Orvane Out", "--connect", "Orvane Out=monitor:input",
                           *arguments), monitor

    def play(self, port, *events):
        """Another program plays, each event as FRAME:BYTES. When it leaves, Orvane releases its keys."""
        self.tool(MIDI_PEER, "player", port, "none", *events)

    def hold(self, *events, to="orvane:Orvane In"):
        """Another program plays and stays."""
        return Peer(self, "keys", *events, "stay", to=to)

    def refuse(self, *arguments):
        """Starts Orvane with arguments that it does not accept, and returns its one line."""
        result = subprocess.run([ORVANE, *arguments], capture_output=True, timeout=PATIENCE, env=self.environment,
                                cwd=self.folder, stdin=subprocess.DEVNULL)
        self.assertEqual((result.returncode, result.stdout, result.stderr.count(b"\n")), (2, b"", 1), arguments)
        return result.stderr.decode()


class Live(Graph):
    def test_messages_of_another_program_are_played_except_those_kept_in_the_host(self):
        self.serve()
        monitor = Monitor(self)
        orvane = self.orvane("--client", "X", "--default-output", "Orvane Out", "--connect",
                             "X:Orvane Out=monitor:input", "--connect", "nobody:there=monitor:input")
        self.assertEqual(len(orvane.complaints), 1, orvane.complained)
        self.assertIn("nobody:there", orvane.complained)
        messages = ["90 3c 64", "b0 07 7f", "c0 05", "d0 44", "e0 00 40", "a0 3c 01", "fa", "fb", "fc", "f2 01 02",
                    "80 3c 40", "ff"]
        kept = ["f8", "fe", "f0 01 02 f7"]
        self.play("X:Orvane In", *(f"{960 * at}:{message.replace(' ', '')}"
                                   for at, message in enumerate(messages[:6] + kept + messages[6:])))
        monitor.await_message("ff")
        self.assertEqual(song(monitor.received), messages)

    def test_every_midi_port_of_the_graph_is_a_port_of_its_own(self):
        self.serve()
        monitor = Monitor(self)
        notes = (f"{4800 * turn}:{status}3c40" for turn, status in enumerate(["93", "83"] * 200))
        Peer(self, "keys", *notes, to="-")
        self.assertEqual(self.tool(ORVANE, "ports").splitlines(), [
            "Back end: JACK", "Inputs", "   0  Orvane In", "   1  keys:output", "Outputs",
            "   0  Orvane Synthesizer", "   1  Orvane Out", "   2  monitor:input"])
        self.orvane("--default-output", "2")
        self.assertIn("monitor:input", self.connections("orvane:to monitor:input"))
        monitor.await_message("80 3c 40")
        self.assertEqual(set(song(monitor.received)), {"90 3c 40", "80 3c 40"}, "the layer gives them its channel")

    def test_a_signal_ends_with_every_note_off(self):
        self.serve()
        thru, direct = Monitor(self, "thru"), Monitor(self, "direct")
        for sent in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
            with self.subTest(signal=sent.name):
                orvane = self.orvane("--default-output", "thru:input")
                keys = self.hold("0:903c64", "480:913e64")
                output = next(line.split()[0] for line in orvane.printed.splitlines() if line.endswith("direct:input"))
                orvane.say(f"play {output} 9 -1 144 36 100", f"play {output} 0 -1 176 64 127")
                until(lambda: sounding(thru.received) == ["3c", "3e"] and sounding(direct.received) == ["24"] and
                      direct.received[-1] == "b0 40 7f", "the notes and the pedal")
                self.assertEqual(orvane.end(sent), 0, orvane.complained)
                until(lambda: not sounding(thru.received) + sounding(direct.received), "the note-offs")
                until(lambda: [said for said in direct.received if said[0] == "b"][-1] == "b0 40 00", "the pedal")
                self.assertEqual(orvane.complaints, [])
                keys.clean()

    def test_what_was_played_is_saved_by_a_command_and_by_a_signal_and_kept_for_the_next_run(self):
        self.serve()
        orvane = self.orvane("--display")
        orvane.say("play 1 0 -1 144 60 100", "play 0 0 -1 192 7 0")
        until(lambda: "Orvane Out\t1\tNote On\t60 (C4)\t100\nOrvane Synthesizer\t1\tProgram Change" in orvane.printed,
              f"the display, {orvane.printed}")
        orvane.say("record take")
        until(lambda: len(orvane.complaints) == 2, "the takes")
        orvane.say("play 1 0 -1 144 62 100")
        until(lambda: "62 (D4)" in orvane.printed, "the display")
        self.assertEqual(orvane.end(), 0)
        self.assertIn("Orvane Out\t1\tNote Off\t62 (D4)", orvane.printed, "the end is displayed too")

        orvane = self.orvane()
        orvane.process.send_signal(signal.SIGUSR1)
        orvane.await_complaint("saved ")
        until(lambda: "nothing was played" in orvane.complained or orvane.process.send_signal(signal.SIGUSR1), "a no")
        takes = sorted(glob.glob(self.folder + "/*.mid"))
        self.assertEqual([re.sub("[0-9. -]+", " ", os.path.basename(take)) for take in takes],
                         ["record _Orvane Out mid", "take_Orvane Out mid", "take_Orvane Synthesizer mid"])
        for take in takes:
            self.assertIn("Header format=0", self.tool("mftext", take))
        with open(takes[0], "rb") as take:
            events = take.read()
        self.assertTrue(b"\x90\x3e\x64" in events and b"\x80\x3e" in events, "the note and the end's note off")

    def test_the_program_that_is_chosen_plays_and_the_keys_change_it(self):
        program = """<Program><ComputerInput>
            <Key id="F9"><Function><Down><ChangeProgram type="up"/></Down></Function></Key>
            <Key id="Q"><Function><Down><MidiNoteOn note="C4"/></Down><Up><MidiNoteOff note="C4"/></Up></Function></Key>
            </ComputerInput><Layers><Layer channel="{}"/></Layers></Program>"""
        bank = self.write("three.bnk", "<Bank>" + "".join(map(program.format, range(3))) + "</Bank>")
        orvane, monitor = self.playing("--load", bank, "--number", "1")
        for channel in (1, 2):
            orvane.say("key down Q", "key up Q")
            monitor.await_message(f"8{channel} 3c 64")
            orvane.say("key down F9", "key up F9")
        self.assertEqual(song(monitor.received), ["91 3c 64", "81 3c 64", "92 3c 64", "82 3c 64"])

    def test_a_disabled_output_ends_its_notes_and_can_be_enabled_again(self):
        orvane, monitor = self.playing()
        orvane.say("play 2 0 -1 144 60 100")
        monitor.await_message("90 3c 64")
        orvane.say("enable output 2 off")
        until(lambda: not sounding(monitor.received), "the note-off")
        until(lambda: not self.connections("orvane:to monitor:input"), "the end of the connection")
        orvane.say("play 2 0 -1 144 62 100", "play 1 0 -1 176 1 1")
        monitor.await_message("b0 01 01")
        orvane.say("enable output 2 on")
        until(lambda: self.connections("orvane:to monitor:input"), "the connection")
        orvane.say("nonsense")
        orvane.await_complaint("standard input:6: ")
        # The list that says the output is back may still be under way when the first note is played.
        until(lambda: orvane.say("play 2 0 -1 144 65 100") or "90 41 64" in monitor.received, "a note")
        self.assertNotIn("90 3e 64", monitor.received)
        orvane.process.stdin.close()
        self.assertEqual(orvane.end(), 0)
        until(lambda: not sounding(monitor.received), "the last note-off")

    def test_a_disabled_input_is_not_received(self):
        orvane, monitor = self.playing()
        self.play("orvane:Orvane In", "0:903c64")
        monitor.await_message("90 3c 64")
        orvane.say("enable input 0 off")
        until(lambda: not sounding(monitor.received), "the note-off of the input")
        self.play("orvane:Orvane In", "0:904064")
        orvane.say("play 1 0 -1 176 1 1")
        monitor.await_message("b0 01 01")
        self.assertEqual([received[:5] for received in song(monitor.received)], ["90 3c", "80 3c", "b0 01"])

    def test_the_built_in_synthesizer_sounds(self):
        self.serve()
        orvane = self.orvane("--tempo", "125")
        self.assertEqual(self.connections("orvane:Synthesizer Left"), {"system:playback_1"})
        self.assertEqual(self.connections("orvane:Synthesizer Right"), {"system:playback_2"})
        orvane.say("play -1 0 -1 144 60 120")
        path = self.folder + "/sound.wav"
        self.tool("jack_rec", "-f", path, "-d", "1", "-b", "16", "orvane:Synthesizer Left",
                  "orvane:Synthesizer Right", status=None)
        with wave.open(path) as sound:
            samples = memoryview(sound.readframes(sound.getnframes())).cast("h")
        self.assertGreater(max(samples), 300, "silence")

    def test_a_server_that_dies_does_not_stop_the_program(self):
        for sent in (signal.SIGKILL, signal.SIGTERM):
            with self.subTest(signal=sent.name):
                self.serve()
                orvane = self.orvane("--default-output", "1")
                self.play("orvane:Orvane In", "0:903c64")
                self.server.end(sent)
                orvane.await_complaint("server is gone")
                orvane.say("play 1 0 -1 144 60 100", "enable output 1 off", "enable input 0 off", "nonsense")
                orvane.await_complaint("standard input:4")
                self.assertEqual(orvane.end(), 0, orvane.complained)

    def test_with_a_server_that_hangs_it_ends_and_a_second_signal_ends_at_once(self):
        """Where the server stopped amid a request of a program, the second signal alone can end it, and the try does not
        count for the first."""
        for _ in range(3):
            self.serve()
            patient, hurried = self.orvane("--client", "patient"), self.orvane("--client", "hurried")
            for one, other in (("patient", "hurried"), ("hurried", "patient")):
                until(lambda: f"{other}:Orvane Out" in self.connections(f"{one}:from {other}:Orvane Out"), "both to settle")
            self.server.process.send_signal(signal.SIGSTOP)
            hurried.process.send_signal(signal.SIGTERM)
            until(lambda: not hurried.has_pending(signal.SIGTERM), "the first signal to be taken")
            self.assertEqual(hurried.end(signal.SIGINT), 128 + signal.SIGINT)
            if comes_true(lambda: "JACK server hangs" in patient.complained):
                self.assertEqual(patient.end(), 0)
                return
            patient.process.kill()
            self.server.stop()
        self.fail("the server stopped amid a request each time")

    def test_without_a_server_it_says_so_and_runs(self):
        listed = self.tool(ORVANE, "ports")
        self.assertNotIn("Back end: JACK", listed)
        orvane = self.orvane("--tempo", "250", "--connect", "a:b=c:d", "--transport", "--clock-out", "0")
        self.assertIn("a:b=c:d: there is no JACK server", orvane.complained)
        self.assertIn("--transport: there is no JACK server", orvane.complained)
        self.assertEqual("no MIDI ports" in orvane.complained, "Back end: none" in listed)
        self.assertEqual("synthesizer is silent" in orvane.complained, "Synthesizer (Couldn't Open)" in listed)
        orvane.say("play 0 0 -1 144 60 100", "midi 0 90 3C", "play 0", "x" * (1 << 20), "", "# a comment", "nonsense")
        for line, reason in ((3, ""), (4, "the line is too long\n"), (7, "")):
            orvane.await_complaint(f"standard input:{line}: {reason}")
        self.assertEqual(orvane.complained.count("standard input:"), 3)
        self.assertEqual(orvane.end(signal.SIGTERM), 0)

    def test_without_any_output_the_program_alone_renders_the_demonstration(self):
        listed = self.tool(ORVANE, "ports")
        if "Back end: none" not in listed or "Couldn't Open" not in listed:
            self.skipTest("this machine has an output")
        os.mkdir(self.folder + "/here")
        result = subprocess.run([ORVANE], cwd=self.folder + "/here", env=self.environment, capture_output=True,
                                timeout=PATIENCE)
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertIn(b"There is no window, because there is no display.\n", result.stderr)
        self.assertEqual(sorted(os.listdir(self.folder + "/here")), ["demonstration.mid", "demonstration.wav"])

    def test_a_wrong_option_is_one_line_and_status_2(self):
        self.serve()
        for arguments in (["--nonsense"], ["nonsense"], ["run", "--tempo", "19"], ["run", "--tempo", "251"],
                          ["run", "--tempo", "fast"], ["run", "--connect", "one"], ["run", "--connect", "=two"],
                          ["run", "--default-output", "Nowhere"], ["run", "--default-output", "2"],
                          ["run", "--load", "no.bnk"], ["run", "--load", ORVANE], ["run", "--number", "-1"],
                          ["run", "--client", "a:b"], ["run", "--client", ""], ["ports", "--nonsense"]):
            self.refuse(*arguments)
        for option, value in (("--clock-in", "Nowhere"), ("--clock-out", "99")):
            self.assertIn(f"{option}: there is no ", self.refuse("run", option, value))
        self.assertEqual(self.refuse("run", "--keys"), "orvane: --keys: standard input is not a terminal\n")
        self.assertEqual(self.tool(ORVANE, "--version"), "Orvane 3.2\n")
        self.assertIn("--default-output", self.tool(ORVANE, "run", "--help"))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[3:], verbosity=1)
