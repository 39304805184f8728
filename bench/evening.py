"""An evening of 40 songs, which is cut off in the middle: evening.py ORVANE MIDI_PEER

A bank and a set list with notes are played entry by entry in a window, in a JACK graph, with a note held over each change
of the program. At the twentieth song a layer is edited, and the process is killed while a note is held and nothing is
saved. The next start must go on there: the edit, the place in the set list and the next song. The edit is then saved, the
evening played to its end, and each program of the saved bank rendered and compared with what was heard. Prints what was
counted; fails if a note was cut, left or another one than expected."""
import glob
import os
import signal
import sys
import time
import unittest

sys.path.insert(0, os.path.dirname(os.path.dirname(os.path.abspath(__file__))) + "/tests/e2e")
import live
from layers import CHANNEL, FILES, LayersAndZones
from live import Monitor, sounding, until

SONGS = 40
CRASH = 20  # the song, from 0
NOTE = 60
SECOND = 64
HELD = "0:90%02x64" % NOTE

SONG = """<Program name="Song {number}"><MidiInput><MidiEvent midiEvent="Controller Change,20"><Translation>
<ChangeProgram type="up"/></Translation></MidiEvent></MidiInput>
<Layers><Layer channel="{channel}" transpose="{transpose:+}"/></Layers></Program>
"""


def note_of(number, key=NOTE):
    """The note-on that a song makes of a key."""
    return "%02x %02x 64" % (0x90 + number % 15, key + number // 15)


class Evening(LayersAndZones):
    def prepare(self):
        self.order = [7 * entry % SONGS for entry in range(SONGS)]
        songs = "".join(SONG.format(number=number, channel=number % 15, transpose=number // 15)
                        for number in range(SONGS))
        self.bank = self.write("Evening.bnk", f"<Bank>\n{songs}</Bank>\n")
        entries = "".join(f'<Entry number="{number}" name="Song {number}" note="capo {number % 5}"/>\n'
                          for number in self.order)
        self.write("Evening.set", f'<SetList on="true">\n{entries}</SetList>\n')

        (settings,) = glob.glob(self.folder + "/config/**/3.2", recursive=True)
        with open(settings, "a") as file:
            file.write("KeepNotes=number:1\n")

    def hear(self, *events, until_note):
        """Another program plays, until that note has come; returns it."""
        known = self.monitor.received.count(until_note)
        keys = self.hold(*events)
        until(lambda: self.monitor.received.count(until_note) > known,
              f"{until_note} among {self.monitor.received[-4:]}")
        return keys

    def is_cut(self, note, following):
        """The next song is called while a key is held, and plays a second key; whether the first note has ended."""
        keys = self.hear(HELD, "24000:b01401", "48000:90%02x64" % SECOND, until_note=note_of(following, SECOND))
        cut = note[3:5] not in sounding(self.monitor.received)
        keys.clean()
        self.await_silence()
        return cut

    def test_an_evening(self):
        self.close(self.started[-1])
        self.prepare()
        orvane = self.open_playing(self.bank)
        self.await_focus()
        cut, heard, began = 0, {}, time.monotonic()
        for entry in range(SONGS):
            number = self.order[entry]
            note = note_of(number)
            if entry == CRASH:
                self.type("ctrl+Tab")
                self.resize(self.type, "Return")
                self.type(*["Tab"] * CHANNEL, "Down", "ctrl+Tab")
                note = "%02x" % (int(note[:2], 16) + 1) + note[2:]
                keys = self.hear(HELD, until_note=note)
                time.sleep(2)  # the longest that an edit takes to the disk
                self.assertEqual(orvane.end(signal.SIGKILL), -signal.SIGKILL)
                keys.clean()
                self.monitor.clean()
                self.monitor = Monitor(self)
                killed = time.monotonic()
                orvane = self.open_playing()
                self.await_focus()
                self.hear(HELD, until_note=note).clean()
                print(f"killed at song {entry + 1}; {time.monotonic() - killed:.1f} s later it plays again, as edited")
                self.await_silence()
                self.save()
            cut += self.is_cut(note, self.order[min(entry + 1, SONGS - 1)])
            heard[number] = note
        print(f"{len(heard)} songs in {time.monotonic() - began:.0f} s; {cut} held notes cut, none left")
        self.assertEqual(orvane.end(signal.SIGTERM), 0, orvane.complained)
        self.assertEqual(cut, 0)
        self.compare(heard)

    def save(self):
        before = self.text()
        self.click(FILES)
        self.type("Down", "Down", "Return")
        self.await_dialog("Save")
        self.type("Return")
        until(lambda: self.text() != before, "the bank")

    def compare(self, heard):
        """The programs of the bank, rendered, with what was heard."""
        performance = self.write("key.perf", f"0 midi 0 90 {NOTE:X} 64\n240 midi 0 80 {NOTE:X} 40\n")
        for number, note in heard.items():
            events = self.tool(live.ORVANE, "render", performance, "--load", self.bank, "--number", str(number),
                               "--events", "-").splitlines()[1:]
            played = ["%02x %02x %02x" % tuple(map(int, event.split(",")[2:])) for event in events]
            self.assertEqual([each for each in played if each[0] == "9"], [note], f"song {number}")
        print(f"{len(heard)} programs of the saved bank, rendered, play what was heard")


for name in [name for name in vars(LayersAndZones) if name.startswith("test_")]:
    delattr(LayersAndZones, name)

if __name__ == "__main__":
    del LayersAndZones
    unittest.main(argv=sys.argv[:1], verbosity=0)
