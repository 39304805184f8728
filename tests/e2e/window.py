"""The window as its users meet it, on a display and in a JACK graph of the test's own:
window.py ORVANE MIDI_PEER"""
import ctypes
import glob
import os
import re
import shutil
import signal
import socket
import sys
import unittest

import live
from live import Monitor, Program, song, sounding, until

TITLE = "Orvane 3"

# What a key is called by its place: the codes of every PC keyboard.
Q, W = 24, 25

PROGRAM = """<ProgramFile><Program name="Test">
    <ComputerInput><Key id="Q"><Function><Down><MidiNoteOn note="C4"/></Down><Up><MidiNoteOff note="C4"/></Up>
    </Function></Key><Key id="W"><Function><Down><MidiNoteOn note="D4"/></Down><Up><MidiNoteOff note="D4"/></Up>
    </Function></Key></ComputerInput>
    <MidiInput>
    <MidiEvent midiEvent="Controller Change,20"><Translation><ShowDisplay/></Translation></MidiEvent>
    <MidiEvent midiEvent="Controller Change,21"><Translation><ShowControl/></Translation></MidiEvent>
    <MidiEvent midiEvent="Controller Change,23"><Translation><ShowOscillator/></Translation></MidiEvent>
    <MidiEvent midiEvent="Controller Change,22"><Translation><MoveWindowTranslation x="120" y="80"/></Translation>
    </MidiEvent></MidiInput>
    <Controls><Control cell="0,0" type="vfader" name="MW" size="2"><Function midiEvent="Controller Change,1"/></Control>
    <Control cell="2,0" type="edit"><Function midiEvent="Controller Change,1"/></Control></Controls>
    <Oscillators><Oscillator detail="1" stopValue="64" midiMessage="Controller Change,2"/></Oscillators>
    <Layers><Layer channel="{channel}"/></Layers></Program></ProgramFile>"""


class Display(Program):
    """An X server without a screen."""

    def __init__(self, test, size="1280x1024"):
        super().__init__(test, "Xvfb", "-displayfd", "1", "-screen", "0", size + "x24", "-nolisten", "tcp", "-noreset",
                         "-r")  # a busy machine may hold a key for longer than the delay of its repeat
        self.await_start("\n")
        if self.process.poll() is not None:
            test.skipTest("this machine gives no display: " + self.complained)
        self.name = ":" + self.printed.strip()


class OtherProgram:
    """Another program on the display."""

    def __init__(self, test):
        self.x = ctypes.CDLL("libX11.so.6")
        self.x.XOpenDisplay.restype = ctypes.c_void_p
        self.display = ctypes.c_void_p(self.x.XOpenDisplay(test.display.name.encode()))

    def close(self, window):
        """As the desktop does."""
        protocols = self.x.XInternAtom(self.display, b"WM_PROTOCOLS", 0)
        delete = self.x.XInternAtom(self.display, b"WM_DELETE_WINDOW", 0)
        event = (ctypes.c_long * 24)(33, 0, 0, 0, window, protocols, 32, delete)  # an XClientMessageEvent
        self.x.XSendEvent(self.display, window, 0, 0, event)
        self.x.XSync(self.display, 0)

    def take_focus(self):
        """With a window of its own."""
        root = self.x.XDefaultRootWindow(self.display)
        window = self.x.XCreateSimpleWindow(self.display, root, 900, 0, 50, 50, 0, 0, 0)
        self.x.XSelectInput(self.display, window, 1)  # the keys that go down
        self.x.XMapRaised(self.display, window)
        self.x.XSetInputFocus(self.display, window, 2, 0)
        self.x.XSync(self.display, 0)


    def keys(self):
        """The places of the keys that have gone down in it."""
        self.x.XSync(self.display, 0)
        event, codes = (ctypes.c_uint * 48)(), []
        while self.x.XCheckMaskEvent(self.display, 1, ctypes.byref(event)):
            codes.append(event[21])
        return codes


class WindowUser(live.Graph):
    """With a display and a graph, the window's output at a monitor."""

    def setUp(self):
        super().setUp()
        for tool in ("Xvfb", "xdotool"):
            if not shutil.which(tool):
                self.skipTest(tool + " is not installed")
        self.environment["XDG_RUNTIME_DIR"] = self.folder + "/runtime"
        os.mkdir(self.folder + "/runtime", 0o700)
        self.show()
        self.serve()
        self.monitor = Monitor(self)

    def show(self, *size):
        self.display = Display(self, *size)
        self.environment["DISPLAY"] = self.display.name

    def program(self, name, channel=0):
        return self.write(name, PROGRAM.format(channel=channel))

    def open(self, *arguments, **options):
        program = Program(self, live.ORVANE, *arguments, **options)
        program.await_start("Closing the window")
        self.assertIsNone(program.process.poll(), program.complained)
        self.started.append(program)
        until(lambda: self.windows(), "the window")
        return program

    def open_playing(self, *arguments, **options):
        """What is played comes to the monitor."""
        return self.open("--default-output", "Orvane Out", "--connect", "orvane:Orvane Out=monitor:input", *arguments,
                         **options)

    def close(self, orvane):
        OtherProgram(self).close(int(self.windows()[0]))
        self.assertEqual(orvane.process.wait(live.PATIENCE), 0, orvane.complained)

    def windows(self):
        return self.tool("xdotool", "search", "--onlyvisible", "--name", f"{TITLE}$", status=None).split()

    def place(self):
        """Left, top, width and height of the window."""
        text = self.tool("xdotool", "getwindowgeometry", "--shell", self.windows()[0])
        return [int(re.search(name + r"=(-?\d+)", text).group(1)) for name in ("X", "Y", "WIDTH", "HEIGHT")]

    def await_focus(self):
        name = ("xdotool", "getwindowfocus", "getwindowname")
        until(lambda: self.tool(*name, status=None).endswith(TITLE + "\n"), "the focus")

    def await_keys(self):
        """Waits until keys play. The window leaves out one that goes down while the focus arrives, which might have
        been held before."""
        self.await_focus()
        known = self.monitor.received.count("90 3e 64")
        until(lambda: self.key("key", W) or self.monitor.received.count("90 3e 64") > known, "a key that plays")
        self.await_silence()

    def key(self, action, code):
        self.tool("xdotool", action, str(code))

    def hold_a_note(self):
        keys = self.hold("0:903c64")
        until(lambda: sounding(self.monitor.received) == ["3c"], "the note")
        return keys

    def await_silence(self):
        until(lambda: not sounding(self.monitor.received), "the note-off")

    def settings(self):
        (path,) = glob.glob(self.folder + "/config/**/3.2", recursive=True)
        with open(path) as file:
            return dict(line.strip().split("=", 1) for line in file if "=" in line)


class Window(WindowUser):
    def test_closing_the_window_ends_the_program_with_every_note_off(self):
        orvane = self.open_playing()
        self.hold_a_note()
        self.close(orvane)
        self.await_silence()
        self.assertEqual([message[:5] for message in song(self.monitor.received)], ["90 3c", "80 3c"])
        self.assertEqual(orvane.complaints, [])

    def test_a_signal_saves_the_record_and_another_ends_the_program_with_every_note_off(self):
        for sent in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP):
            with self.subTest(signal=sent.name):
                orvane = self.open_playing()
                keys = self.hold_a_note()
                orvane.process.send_signal(signal.SIGUSR1)
                orvane.await_complaint("saved ")
                self.assertEqual(orvane.end(sent), 0, orvane.complained)
                self.await_silence()
                keys.clean()

    def test_the_clock_the_status_and_the_graph_go_on_beside_it(self):
        orvane = self.open_playing("--clock-out", "Orvane Out", "--status")
        until(lambda: self.monitor.received.count("f8") > 48, "ticks")
        self.assertEqual(self.monitor.received[:2], ["fa", "f8"])
        until(lambda: "\nJACK 48000 Hz" in orvane.printed, "the status")
        for turn in range(1, 5):
            self.server.end(signal.SIGKILL)
            orvane.await_complaint("server is gone", turn)
            self.serve()
            orvane.await_complaint("server is back", turn)
            self.monitor.clean()
            self.monitor = Monitor(self)
            if live.comes_true(lambda: self.monitor.received.count("f8") > 48):
                break
        else:
            self.fail("no server ran")
        self.hold_a_note()
        self.close(orvane)
        self.await_silence()
        self.assertEqual({message[:5] for message in self.monitor.received}, {"f8", "90 3c", "80 3c", "fc"})

    def test_a_display_that_hangs_or_dies_leaves_no_note_sounding(self):
        orvane = self.open_playing()
        keys = self.hold_a_note()
        self.display.process.send_signal(signal.SIGSTOP)
        orvane.end(signal.SIGTERM)
        self.await_silence()
        keys.clean()
        self.display.process.send_signal(signal.SIGCONT)

        orvane = self.open_playing()
        self.hold_a_note()
        self.display.process.kill()
        self.assertNotEqual(orvane.process.wait(live.PATIENCE), 0)
        self.await_silence()

    def test_keys_play_and_are_released_with_the_focus(self):
        orvane = self.open_playing(self.program("keys.prg"))
        self.await_keys()
        for count in (1, 2):
            self.key("keydown", Q)
            until(lambda: self.monitor.received.count("90 3c 64") == count, "the note")
            if count == 1:
                self.key("keyup", Q)
                self.await_silence()
        OtherProgram(self).take_focus()
        self.await_silence()
        self.key("keyup", Q)
        self.key("key", Q)

        self.tool("xdotool", "windowfocus", "--sync", self.windows()[0])
        self.await_keys()
        self.key("keydown", Q)
        until(lambda: self.monitor.received.count("90 3c 64") == 3, "the third note and no more")
        self.assertEqual(orvane.end(signal.SIGTERM), 0, orvane.complained)
        self.key("keyup", Q)
        self.await_silence()

    def test_a_fader_and_an_oscillator_of_the_window_are_heard(self):
        orvane = self.open_playing(self.program("keys.prg"))
        self.await_keys()
        height = self.place()[3]
        self.play("orvane:Orvane In", "0:b01501")  # the controls are shown
        until(lambda: self.place()[3] > height, "a larger window")
        self.tool("xdotool", "key", "ctrl+Tab", "ctrl+Tab", "Tab", "Up", "Up")  # past the keys, to the grid and MW
        until(lambda: self.monitor.received[-2:] == ["b0 01 01", "b0 01 02"], "the fader")
        self.tool("xdotool", "key", "Tab", "9", "Return")
        until(lambda: self.monitor.received[-1:] == ["b0 01 09"], "the edit")

        height = self.place()[3]
        self.play("orvane:Orvane In", "0:b01701")  # the oscillators are shown, above the other screens
        until(lambda: self.place()[3] > height, "a larger window")
        self.tool("xdotool", "key", "ctrl+Tab", "Tab", "space")  # to the list, and to its first button
        until(lambda: self.monitor.received[-1].startswith("b0 02") and "b0 02 40" in self.monitor.received, "the wave")
        self.tool("xdotool", "key", "space")
        until(lambda: self.monitor.received[-1] == "b0 02 40", "the stop value")
        self.await_keys()
        self.assertEqual(orvane.end(), 0, orvane.complained)

    def test_suspended_while_keys_play_it_leaves_no_note_sounding(self):
        orvane = self.open_playing(self.program("keys.prg"), process_group=0)  # a job of ours, which can be suspended
        self.await_keys()
        Program(self, "xdotool", "key", "--delay", "1", "--repeat", "1000000", str(Q))
        for _ in range(5):
            known = len(self.monitor.received)
            until(lambda: len(self.monitor.received) > known + 20, "keys that play")
            orvane.process.send_signal(signal.SIGTSTP)
            self.assertTrue(os.WIFSTOPPED(os.waitpid(orvane.process.pid, os.WUNTRACED)[1]))
            self.await_silence()
            orvane.process.send_signal(signal.SIGCONT)
        self.assertEqual(orvane.end(), 0, orvane.complained)
        self.await_silence()

    def test_the_window_comes_back_as_it_was(self):
        orvane = self.open_playing(self.program("screens.prg"))
        height = self.place()[3]
        self.play("orvane:Orvane In", "0:b01401")  # the display shows
        until(lambda: self.place()[3] > height, "a larger window")
        self.play("orvane:Orvane In", "0:b01601")
        until(lambda: self.place()[:2] == [120, 80], "the window at its new place")
        place = self.place()
        self.close(orvane)
        shown = self.settings()

        orvane = self.open_playing()
        until(lambda: self.place() == place, f"the window as it was, {place}, not {self.place()}")
        self.assertEqual(orvane.end(), 0)
        self.assertEqual(self.settings(), shown)

    def test_a_small_display_shows_all_of_it_and_keys_play_after_a_list(self):
        self.show("1024x600")
        orvane = self.open_playing(self.program("keys.prg"))
        self.await_keys()
        self.play("orvane:Orvane In", "0:b01401")  # the display shows
        for scale in ("100", "200"):
            until(lambda: self.place()[3] == 600, f"a window as high as the display at {scale} %, {self.place()}")
            left, top, width, _ = self.place()
            self.assertTrue(left >= 0 and top >= 0 and left + width <= 1024, f"{scale} %: {self.place()}")
            if scale == "100":
                self.close(orvane)
                (path,) = glob.glob(self.folder + "/config/**/3.2", recursive=True)
                with open(path, "a") as file:
                    file.write("WindowScale=number:200\n")
                orvane = self.open_playing(self.program("keys.prg"))
                self.await_focus()
        left, top, width, _ = self.place()
        self.tool("xdotool", "mousemove", str(left + width // 4), str(top + 60), "click", "1")  # the program's name
        self.tool("xdotool", "key", "--delay", "100", "Return")
        self.await_keys()
        self.key("key", Q)
        until(lambda: "90 3c 64" in self.monitor.received, "a note after the list")
        self.assertEqual(orvane.end(), 0, orvane.complained)

    def test_a_second_start_offers_the_window_of_the_first(self):
        first = self.open_playing(self.program("one.prg", 0))
        OtherProgram(self).take_focus()
        self.program("two.prg", 2)
        second = Program(self, live.ORVANE, "two.prg", "--load", "two.prg")
        self.assertEqual(second.process.wait(live.PATIENCE), 0, second.complained)
        self.assertEqual((second.printed.count("\n"), second.complained), (1, ""))
        self.assertIn("already open", second.printed)
        self.await_focus()
        until(lambda: self.play("orvane:Orvane In", "0:903c64", "48:803c40") or "92 3c 64" in self.monitor.received,
              "the program of the second start")

        self.refuse("no.prg")
        self.assertEqual(self.open("--tempo", "100").end(), 0)
        self.assertEqual(first.end(), 0)

    def test_a_start_while_the_first_one_ends_opens_a_window_of_its_own(self):
        first = self.open()
        first.process.send_signal(signal.SIGTERM)
        self.assertEqual(self.open().end(), 0)
        self.assertEqual(first.process.wait(live.PATIENCE), 0)

        orvane = self.open()
        (path,) = glob.glob(self.environment["XDG_RUNTIME_DIR"] + "/orvane-*.socket")
        for nonsense in (b"", b"orvane window 1", b"nonsense\0" * 1000):
            with socket.socket(socket.AF_UNIX) as visitor:
                visitor.connect(path)
                visitor.sendall(nonsense)
                visitor.shutdown(socket.SHUT_WR)
                self.assertEqual(visitor.recv(1), b"")
        self.assertEqual(orvane.end(), 0)
        self.assertEqual(os.listdir(self.environment["XDG_RUNTIME_DIR"]), [])

    def test_without_a_display_it_says_why_and_plays(self):
        for changes, reason in (({"DISPLAY": ""}, "there is no display"),
                                ({"DISPLAY": ":4711"}, "the display :4711 does not answer"),
                                ({"DISPLAY": "", "WAYLAND_DISPLAY": "nowhere"}, "the display nowhere does not answer")):
            with self.subTest(changes):
                orvane = Program(self, live.ORVANE, "--client", "blind", env={**self.environment, **changes})
                orvane.await_start("Commands are read")
                self.assertEqual(orvane.complained, f"orvane: There is no window, because {reason}.\n")
                self.assertEqual(orvane.end(), 0)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[3:], verbosity=1)
