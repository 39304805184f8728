"""Layers, zones and keys as a performer sets them up in the window of a new user, with the mouse alone and with the
keyboard alone; then the bank is saved and played without the window: layers.py ORVANE MIDI_PEER"""
import glob
import re
import signal
import sys
import time
import unittest

import live
from live import song, until
from window import OtherProgram, Q, WindowUser

E, T, A, Z = 26, 28, 38, 52  # keys by their places, as Q

# Logical pixels from the top left corner of the window with the screens of the system, output, layers and zones
SCREENS = "YNNNNNNNYYNY"
FILES, DISCARD = (822, 146), (648, 114)
PIANO, ZONES, ADD, LAYERS = 280, 312, (105, 357), 378
ROW = 16  # of a layer


def key(note, part=0.5):
    """From the left edge of the window to that part of a white key, "C4"."""
    return 13 + 950 / 75 * (7 * (int(note[1:]) + 1) + "CDEFGAB".index(note[0]) + part)


def setting(number, layers):
    """The control of a setting beneath so many layers, counted in the order of the form."""
    return (160, 480, 822)[number // 8], LAYERS + ROW * layers + 11 + 28 * (number % 8)


def cell(step, half_tone, layers):
    return 60 + 36 * step, LAYERS + ROW * layers + 347 - 7 * half_tone


CHANNEL, ARPEGGIO, BEAT, SEQUENCE, SEQUENCE_TEXT = 3, 15, 16, 18, 21
LONGEST_PRESS = 2  # seconds, of a key that does not play all that is awaited
GRID = 12  # behind the layers in the order of Tab


# The same with the screens of the system, help, keys and output, and the settings of a key
GLOBAL_KEYS, EDIT, KEY_A = (708, 178), (510, 274), (104, 436)
KEY_GLOBAL, SEARCH, KEY_NOTE = (144, 797), (490, 577), (790, 662)


class Performer(WindowUser):
    """A new user, whose bank has been saved before."""
    screens = "YYNNNNYNYNNN"

    def setUp(self):
        super().setUp()
        self.close(self.open())
        (path,) = glob.glob(self.folder + "/config/**/3.2", recursive=True)
        with open(path) as file:
            text = file.read()
        with open(path, "w") as file:
            file.write(re.sub("ScreenState=.*", "ScreenState=string:" + self.screens, text))
        (self.bank,) = glob.glob(self.folder + "/data/**/Default Bank.bnk", recursive=True)
        with open(self.bank, "a") as file:
            file.write("\n")  # a bank as it was installed is not replaced without a question
        self.open_playing()
        self.await_keys()

    # --- hands

    def mouse(self, place, *does):
        left, top, _, _ = self.place()
        self.tool("xdotool", "mousemove", str(round(left + place[0])), str(round(top + place[1])), *does)

    def click(self, place, button=1, times=1):
        self.mouse(place, *["click", str(button)] * times)

    def drag(self, start, end, button=1):
        self.mouse(start, "mousedown", str(button))
        self.mouse(end, "mouseup", str(button))

    def type(self, *keys):
        self.tool("xdotool", "key", "--delay", "1", *keys)

    def await_dialog(self, title):
        until(lambda: self.tool("xdotool", "search", "--onlyvisible", "--name", f"^{title}$", status=None), title)

    def resize(self, action, *arguments):
        """Does what changes the height of the window."""
        before = self.place()[3]
        action(*arguments)
        until(lambda: self.place()[3] != before, f"another height than {before}")

    def plays(self, code, notes):
        """Whether these are the first notes of a key, which is held until they have come; then every note ends."""
        known = len(self.monitor.received)

        def first():
            return [message[:5] for message in self.monitor.received[known:] if message[0] == "9"][:len(notes)]

        self.key("keydown", code)
        limit = time.monotonic() + LONGEST_PRESS
        while len(first()) < len(notes) and time.monotonic() < limit:
            time.sleep(0.02)
        self.key("keyup", code)
        self.await_silence()
        return set(first()) == set(notes)

    def await_played(self, code, *notes):
        """What the key plays once everything is done that was posted before."""
        until(lambda: self.plays(code, notes), f"{notes}, not {self.monitor.received[-4:]}")

    def arpeggio(self):
        """Some notes of the arpeggio under three keys that are held."""
        for code in (Q, E, T):
            self.key("keydown", code)
        known = len(self.monitor.received)

        def notes():
            return [message[:5] for message in self.monitor.received[known:] if message[:2] == "90"]

        until(lambda: len(notes()) >= 20, "an arpeggio")
        for code in (Q, E, T):
            self.key("keyup", code)
        self.await_silence()
        return notes()[8:20]

    # --- the bank

    def text(self):
        with open(self.bank) as file:
            return file.read()

    def save(self):
        before = self.text()
        self.click(FILES)
        self.type("Down", "Down", "Return")
        self.await_dialog("Save")
        self.type("Return")
        until(lambda: self.text() != before, "the bank")

    def render(self, performance):
        """The status bytes and the data of the saved bank without the window."""
        path = self.write("keys.perf", performance)
        events = [line.split(",") for line in self.tool(live.ORVANE, "render", path, "--load", self.bank,
                                                        "--events", "-").splitlines()[1:]]
        return ["%02x %02x %02x" % tuple(map(int, event[2:])) for event in events]


class LayersAndZones(Performer):
    screens = SCREENS

    def change_channel(self):
        """Of the only layer, by the keyboard."""
        self.type("ctrl+Tab")
        self.resize(self.type, "Return")
        self.type(*["Tab"] * CHANNEL, "Down", "ctrl+Tab")
        self.await_played(Q, "91 3c")

    def check(self, *steps):
        """The arpeggio adds the steps of its sequence to the notes of the zone, which is a half-tone higher; so does
        the saved bank without the window."""
        arpeggio = self.arpeggio()
        notes = ["90 %02x" % (note + step) for step in steps for note in (61, 65, 68)]
        self.assertIn(" ".join(arpeggio), " ".join(notes * 8))
        self.await_played(Z, "90 30")

        self.save()
        keys = [f"{at} key {action} {name}\n" for action, at in (("down", 0), ("up", 9000)) for name in "QET"]
        played = [event[:5] for event in self.render("".join(keys))]
        self.assertIn(" ".join(arpeggio), " ".join(each for each in played if each[:2] == "90"))
        self.assertEqual([each for each in played if each[:2] == "91"], ["91 3d", "91 41", "91 44"])

    def test_a_split_a_stack_with_an_arpeggio_and_a_transposed_zone_by_the_mouse_alone(self):
        self.resize(self.click, ADD)
        self.click((300, LAYERS + ROW), 2)
        self.click((key("C4"), PIANO))
        self.click((key("G9"), PIANO), 3)
        self.drag((key("G9", 1) - 1, LAYERS), (key("B3", 1), LAYERS))
        self.resize(self.click, (key("G5"), LAYERS + ROW), 3)
        self.click(setting(CHANNEL, 2), 5)
        self.await_played(Q, "91 3c")
        self.await_played(Z, "90 30")

        self.resize(self.click, ADD)
        self.resize(self.click, setting(ARPEGGIO, 3), 5, 2)
        self.click(setting(BEAT, 3), 5, 3)
        for step, half_tone in enumerate((0, 7, 12)):
            self.click(cell(step, half_tone, 3))

        zone = (key("C4"), ZONES)
        self.drag(zone, (zone[0] + 3, zone[1]), 3)  # no more than a click, which opens a menu
        self.type("Escape")
        self.await_played(Q, "90 3c", "91 3c")
        self.key("keydown", Q)
        self.drag(zone, (zone[0] + 4, zone[1]), 3)
        self.key("keyup", Q)
        self.await_played(Q, "90 3d", "91 3d")
        self.check(0, 7, 12)

    def test_the_same_by_the_keyboard_alone(self):
        self.type("ctrl+Tab")  # the layers
        self.resize(self.type, "Insert")
        self.type(*["ctrl+Right"] * 5, "Up", *["ctrl+shift+Left"] * 5, *["shift+Left"] * 8, "Down")
        self.resize(self.type, "Return")
        self.type(*["Tab"] * CHANNEL, "Down", "ctrl+Tab")
        self.await_played(Q, "91 3c")
        self.await_played(Z, "90 30")

        self.resize(self.type, "Insert")
        self.resize(self.type, "Return")
        self.resize(self.type, "Return")
        self.resize(self.type, *["Tab"] * ARPEGGIO, "Down", "Down")
        self.type("Tab", "Down", "Down", "Down")
        self.type(*["Tab"] * (SEQUENCE - BEAT), *["Down"] * 12)  # 011 - 5th Up
        self.type(*["Tab"] * (SEQUENCE_TEXT - SEQUENCE), "0", "comma", "1", "2")
        self.type("ctrl+Tab", *["Tab"] * GRID, "End", *["Up"] * 5, "space")
        self.type("ctrl+Tab", "shift+Tab", "Right")  # the layers, the zones
        self.await_played(Q, "90 3d", "91 3d")
        self.check(0, 12, 5)
        self.assertIn("<Sequence>0,12,5</Sequence>", self.text())
        self.assertIn('<SequenceSetting preset=""', self.text())

    def test_what_is_not_saved_is_there_after_a_kill_until_it_is_discarded_and_gone_after_an_ordinary_end(self):
        before = self.text()

        def is_kept():
            paths = glob.glob(self.folder + "/config/**/recovery-1", recursive=True)
            return any('channel="1"' in open(path).read() for path in paths)

        def close(_):
            OtherProgram(self).close(int(self.windows()[0]))
            self.await_dialog("Changes that are not saved")
            self.type("alt+y")

        for end in (lambda orvane: orvane.end(signal.SIGKILL), lambda orvane: orvane.end(signal.SIGTERM), close):
            self.change_channel()
            until(is_kept, "the edit in the recovery file")
            orvane = self.started[-1]
            end(orvane)
            if orvane.process.wait(live.PATIENCE) < 0:
                self.open_playing()
                self.await_focus()
                self.await_played(Q, "91 3c")
                self.click(DISCARD)
            else:
                self.assertFalse(is_kept())
                self.open_playing()
                self.await_keys()
            self.await_played(Q, "90 3c")
        self.assertEqual(self.text(), before)


class Keys(Performer):
    def test_a_key_bound_in_the_window_is_left_to_other_programs_and_rendered_as_it_was_heard(self):
        self.resize(self.click, KEY_A, 3)
        self.click(SEARCH)
        self.tool("xdotool", "type", "note on")
        self.type("Down")
        self.click(KEY_NOTE)
        self.type("Up")
        self.click(KEY_GLOBAL, 5)
        self.resize(self.click, EDIT)
        self.type("Escape")
        self.await_played(A, "90 3d")
        known = len(self.monitor.received)
        for code in (A, Q):
            self.assertTrue(self.plays(code, ["90 3d" if code == A else "90 3c"]))
        heard = song(self.monitor.received[known:])
        self.assertEqual([event[:5] for event in heard], ["90 3d", "80 3d", "90 3c", "80 3c"])

        self.click(GLOBAL_KEYS)
        other = OtherProgram(self)
        other.take_focus()
        known = len(self.monitor.received)
        for code in (Q, A, Q):
            self.key("key", code)
        until(lambda: len(self.monitor.received) >= known + 4, "the global key")
        self.assertEqual([event[:5] for event in self.monitor.received[known:]], ["90 3c", "80 3c"] * 2)
        self.assertEqual(other.keys(), [A])

        self.tool("xdotool", "windowfocus", "--sync", self.windows()[0])
        self.await_focus()
        self.save()
        keys = "".join(f"{at} key {action} {name}\n" for name, start in (("A", 0), ("Q", 200))
                       for at, action in ((start, "down"), (start + 100, "up")))
        self.assertEqual(self.render(keys), heard)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[3:], verbosity=1)
