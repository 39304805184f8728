"""MIDI clocks and the transport of a JACK graph, with another process as the other end:
clock.py ORVANE MIDI_SOURCE MIDI_FILE_READERS.sh CLOCK_SOURCE

What is asserted are messages in their order and distances in frames of the graph, which are exact; where the server
left periods out, a try does not count."""
import signal
import subprocess
import sys
import unittest

import live
from live import ORVANE, Monitor, Program, until

CLOCK_SOURCE = sys.argv[4]
TICK, START, CONTINUE, STOP = "f8", "fa", "fb", "fc"
TRIES = 5


class Record:
    """What a clock source printed."""

    def __init__(self, text):
        lines = [line.split() for line in text.splitlines()]
        self.sent, self.received = ([(int(line[1]), line[2]) for line in lines if line[0] == verb]
                                 for verb in ("sent", "received"))
        self.gaps = sum(line[0] == "gap" for line in lines)

    def song(self):
        """The messages received, consecutive ticks as their number."""
        song = []
        for _, message in self.received:
            if message != TICK:
                song.append(message)
            elif song and isinstance(song[-1], int):
                song[-1] += 1
            else:
                song.append(1)
        return song

    def frames(self, message):
        return [frame for frame, received in self.received if received == message]

    def distances(self, after=None):
        """From tick to tick, of those after the last such message."""
        first = 0
        for index, (_, message) in enumerate(self.received):
            if message == after:
                first = index
        frames = [frame for frame, message in self.received[first:] if message == TICK]
        return [later - earlier for earlier, later in zip(frames, frames[1:])]


def longest_run(values, wanted):
    longest = run = 0
    for value in values:
        run = run + 1 if value == wanted else 0
        longest = max(longest, run)
    return longest


def runs_to_the_frame(frames, distance, count):
    """Whether that many follow each other at that distance, rounded up to whole frames from the first."""
    return any(all(abs(frame - frames[first] - number * distance) < 1 for number, frame in enumerate(run))
               for first in range(len(frames) - count) for run in [frames[first:first + count + 1]])


class Clocks(live.Graph):
    def source(self, *arguments):
        """The record of a clock source that came to its end without a gap."""
        for _ in range(TRIES):
            source = Program(self, CLOCK_SOURCE, *map(str, arguments))
            self.assertEqual(source.process.wait(120), 0, source.complained)
            record = Record(source.printed)
            if not record.gaps:
                return record
        self.skipTest("this machine is too busy to keep time")

    def expect_ticks_of(self, frames, monitor):
        """Two beats of ticks, each that far from the next."""
        runs = []
        for _ in range(TRIES):
            listener = Program(self, CLOCK_SOURCE, "listener", "-", "orvane:Orvane Out", "0", "0", "0", "0")
            received = monitor.received.count(TICK)
            until(lambda: monitor.received.count(TICK) > received + 120, "ticks")
            self.assertEqual(listener.end(signal.SIGTERM), 0)
            runs.append(longest_run(Record(listener.printed).distances(), frames))
            if runs[-1] >= 48:
                return
        self.fail(f"no two beats of ticks {frames} frames from one to the next: {runs}")

    def test_the_clock_that_is_sent_starts_ticks_to_the_frame_and_stops(self):
        self.serve()
        monitor = Monitor(self, "monitor")
        orvane = self.orvane("--tempo", "120", "--clock-out", "Orvane Out", "--connect", "Orvane Out=monitor:input",
                             "--default-output", "Orvane Out")
        until(lambda: monitor.received.count(TICK) > 48, "ticks")
        self.assertEqual(monitor.received[:2], [START, TICK])
        self.expect_ticks_of(1000, monitor)
        orvane.say("play 1 0 -1 144 60 100")
        monitor.await_message("90 3c 64")
        self.assertEqual(orvane.end(), 0)
        until(lambda: monitor.received[-1][:5] == "80 3c" or monitor.received[-1] == STOP, "the end")
        self.assertEqual(monitor.received.count(STOP), 1)
        self.assertNotIn(TICK, monitor.received[monitor.received.index(STOP):])

    def test_an_arpeggio_plays_to_the_frame(self):
        with open(self.folder + "/arpeggio.prg", "w") as file:
            file.write('<ProgramFile><Program><Layers><Layer><Arpeggio><UpArpeggio beat="120" length="50"/></Arpeggio>'
                       '</Layer></Layers></Program></ProgramFile>')
        self.serve()
        monitor = Monitor(self, "monitor")
        orvane = self.orvane("--load", "arpeggio.prg", "--default-output", "Orvane Out", "--connect",
                             "Orvane Out=monitor:input")
        orvane.say("midi 0 90 3C 64")
        for bpm in (120, 97):  # 6000 frames, and 7422.68
            orvane.say(f'function <ChangeTempo value="{bpm}"/>')
            beat, tries = 120 * 48000 * 60 / 480 / bpm, []
            while not any(tries):
                self.assertLess(len(tries), TRIES, f"{bpm} bpm")
                listener = Program(self, CLOCK_SOURCE, "listener", "-", "orvane:Orvane Out", "0", "0", "0", "0")
                played = monitor.received.count("80 3c 64")
                until(lambda: monitor.received.count("80 3c 64") > played + 40, "the arpeggio")
                self.assertEqual(listener.end(signal.SIGTERM), 0)
                record = Record(listener.printed)
                on, off = record.frames("903c64"), record.frames("803c64")
                lengths = {after - before for before, after in zip(on, [frame for frame in off if frame > on[0]])}
                tries.append(runs_to_the_frame(on, beat, 24) and runs_to_the_frame(off, beat, 24) and
                             any(abs(length - beat * 50 / 120) < 1 for length in lengths))
        self.assertEqual(orvane.end(), 0)

    def test_an_external_clock_is_forwarded_tick_by_tick_and_its_tempo_stays_in_each_graph(self):
        self.serve()
        orvane = self.orvane("--clock-in", "Orvane In", "--clock-out", "Orvane Out", "--default-output", "Orvane Out")
        for turn, (bpm, jitter, drift, beats) in enumerate([(150, 1, 0, 20), (100, 1, 2, 12)]):
            with self.subTest(bpm=bpm, drift=drift):
                record = self.source("master", "orvane:Orvane In", "orvane:Orvane Out", bpm, jitter, drift, beats)
                song = record.song()
                if isinstance(song[0], int):
                    song = song[1:]  # ticks sent before the external clock starts
                self.assertEqual(song[0], START)
                self.assertEqual(song[2], STOP, song)
                self.assertAlmostEqual(song[1], beats * 24, delta=1)
                self.assertEqual(len(song), 4, f"{song}: what the layers make of the start does not come too")
                last = bpm + drift * beats
                for distance in record.distances(STOP)[1:]:
                    expected = 48000 * 60 / last / 24
                    self.assertAlmostEqual(distance, expected, delta=expected / 10)  # a busy server loses frames
            self.server.end(signal.SIGKILL)
            until(lambda: orvane.complained.count("server is gone") == turn + 1, "the complaint")
            self.serve()
            until(lambda: orvane.complained.count("server is back") == turn + 1, "the return")
        self.assertEqual(orvane.end(), 0)

    def test_the_program_gets_the_external_tempo(self):
        self.serve()
        monitor = Monitor(self, "monitor")
        orvane = self.orvane("--clock-in", "0", "--clock-out", "Orvane Out", "--connect", "Orvane Out=monitor:input")
        self.source("master", "orvane:Orvane In", "orvane:Orvane Out", 150, 0, 0, 8)
        orvane.say('function <ChangeTempo value="+10"/>')
        self.expect_ticks_of(48000 * 60 // 160 // 24, monitor)
        self.assertEqual(orvane.end(), 0)

    def test_the_transport_starts_and_stops_the_clock_and_its_master_sets_the_tempo(self):
        self.serve()
        orvane = self.orvane("--transport", "--clock-out", "Orvane Out", "--tempo", "120")
        record = self.source("roller", "-", "orvane:Orvane Out", "roll", 0, 125, 20)
        song = [part for part in record.song() if not isinstance(part, int)]
        self.assertEqual(song, [START, STOP])
        ticks = [frame for frame, message in record.received if message in (TICK, STOP)]
        stop = next(frame for frame, message in record.received if message == STOP)
        settled = [frame for frame in ticks if frame < stop][-25:]
        for earlier, later in zip(settled, settled[1:]):
            self.assertAlmostEqual(later - earlier, 960, delta=1)
        record = self.source("roller", "-", "orvane:Orvane Out", "roll", 60000, 125, 2)  # ten sixteenths and more
        song = [part for part in record.song() if not isinstance(part, int)]
        self.assertEqual(song, ["f20b00", CONTINUE, STOP])
        self.assertEqual(orvane.end(), 0)

    def test_what_is_not_there_is_one_line(self):
        for arguments in (["--clock-in", "Nowhere"], ["--clock-out", "99"]):
            result = subprocess.run([ORVANE, "run", *arguments], capture_output=True, timeout=live.PATIENCE,
                                    env=self.environment, stdin=subprocess.DEVNULL)
            self.assertEqual(result.returncode, 2, arguments)
            self.assertIn(f"{arguments[0]}: there is no ", result.stderr.decode().splitlines()[-1])
        orvane = self.orvane("--transport", "--clock-out", "0")
        self.assertIn("--transport: there is no JACK server", orvane.complained)
        self.assertEqual(orvane.end(), 0)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=1)
