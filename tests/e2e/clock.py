"""MIDI clocks and the transport of a JACK graph, with another program as the other end:
clock.py ORVANE MIDI_PEER

What is asserted are messages in their order and distances in frames of the graph, which are exact; where the server
left periods out, a try does not count."""
import os
import random
import signal
import sys
import unittest

import live
from live import Peer, comes_true, until

TICK, START, CONTINUE, STOP = "f8", "fa", "fb", "fc"
OUT = "orvane:Orvane Out"
RATE = 48000
TRIES = 5


def clock(bpm, jitter, drift, beats):
    """A start, ticks and a stop. Every tick is off by up to `jitter` milliseconds either way, the same ones each time,
    and the tempo grows by `drift` in each beat."""
    noise, at, last = random.Random(1), 2 * jitter * RATE / 1000, 0
    events = ["0:" + START]
    for tick in range(beats * 24):
        last = max(last, round(at + noise.uniform(-jitter, jitter) * RATE / 1000))
        events.append(f"{last}:{TICK}")
        at += RATE * 60 / (bpm + drift * tick / 24) / 24
    return [*events, f"{last}:{STOP}"]


def distances(frames):
    return [later - earlier for earlier, later in zip(frames, frames[1:])]


def runs_to_the_frame(frames, distance, count):
    """Whether that many follow each other at that distance, rounded up to whole frames from the first."""
    return any(all(abs(frame - frames[first] - number * distance) < 1 for number, frame in enumerate(run))
               for first in range(len(frames) - count) for run in [frames[first:first + count + 1]])


class Record:
    """What another program sent and received."""

    def __init__(self, peer):
        self.sent, self.received, self.gaps = (peer.record(verb) for verb in ("sent", "received", "gap"))

    def frames(self, message, after=None):
        """Of those received, or of those after the last `after`."""
        received = [message for _, message in self.received]
        first = len(received) - received[::-1].index(after) if after in received else 0
        return [frame for frame, found in self.received[first:] if found == message]

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


class Clocks(live.Graph):
    def source(self, *events, to, ticks=0):
        """The record of another program without a gap, up to the clock's stop and that many ticks after it. A program
        that the server did not run or connect is started again."""
        has_stopped, complaints = False, []
        for _ in range(TRIES):
            peer = Peer(self, "master", *events, to=to, source=OUT)
            stopped = comes_true(lambda: peer.process.poll() is not None or STOP in peer.received
                                 and len(Record(peer).frames(TICK, STOP)) >= ticks)
            if peer.end(signal.SIGTERM) != 0:
                complaints.append(peer.complained)
                continue
            record = Record(peer)
            if stopped and not record.gaps:
                return record
            has_stopped |= stopped
        self.assertTrue(has_stopped, f"the clock never stopped: {complaints} {self.started[-1].complained}")
        self.skipTest("this machine is too busy to keep time")

    def expect(self, holds, what):
        """Waits for what is played to the frame, which a busy server may disturb."""
        listener = Peer(self, "listener", source=OUT)
        until(lambda: holds(Record(listener)), what)
        listener.clean()

    def test_the_clock_of_the_setup_starts_ticks_to_the_frame_and_stops(self):
        os.makedirs(self.folder + "/config/Brinlow Software/Orvane 3")
        with open(self.folder + "/config/Brinlow Software/Orvane 3/3.2", "w") as settings:
            settings.write("ClockOut=number:1\nSoundFont=string:/dev/null\nConnectSound=number:0\n")
        orvane, monitor = self.playing("--tempo", "120")
        self.assertIn("has the installed sounds: /dev/null is not a sound font.", orvane.complained)
        until(lambda: monitor.received.count(TICK) > 48, "ticks")
        self.assertEqual(monitor.received[:2], [START, TICK])
        self.expect(lambda record: runs_to_the_frame(record.frames(TICK), 1000, 48), "two beats of exact ticks")
        orvane.say("play 1 0 -1 144 60 100")
        monitor.await_message("90 3c 64")
        self.assertEqual(orvane.end(), 0)
        until(lambda: STOP in monitor.received and not live.sounding(monitor.received), "the end")
        self.assertEqual(monitor.received.count(STOP), 1)
        self.assertNotIn(TICK, monitor.received[monitor.received.index(STOP):])

    def test_an_external_clock_is_forwarded_tick_by_tick_and_its_tempo_stays_in_each_graph(self):
        self.serve()
        orvane = self.orvane("--clock-in", "Orvane In", "--clock-out", "Orvane Out", "--default-output", "Orvane Out")
        for turn, (bpm, jitter, drift, beats) in enumerate([(150, 1, 0, 20), (100, 1, 2, 12)], 1):
            with self.subTest(bpm=bpm, drift=drift):
                record = self.source(*clock(bpm, jitter, drift, beats), to="orvane:Orvane In", ticks=48)
                song = record.song()
                if isinstance(song[0], int):
                    song = song[1:]  # ticks sent before the external clock starts
                self.assertEqual((song[0], song[2], len(song)), (START, STOP, 4), f"{song}, not a second start")
                self.assertAlmostEqual(song[1], beats * 24, delta=1)
                expected = RATE * 60 / (bpm + drift * beats) / 24
                for distance in distances(record.frames(TICK, STOP))[1:]:
                    self.assertAlmostEqual(distance, expected, delta=expected / 10)  # a busy server loses frames
            self.server.end(signal.SIGKILL)
            orvane.await_complaint("server is gone", turn)
            self.serve()
            orvane.await_complaint("server is back", turn)

    def test_the_program_gets_the_external_tempo(self):
        orvane, _ = self.playing("--clock-in", "0", "--clock-out", "Orvane Out")
        self.source(*clock(150, 0, 0, 8), to="orvane:Orvane In")
        orvane.say('function <ChangeTempo value="+10"/>')
        self.expect(lambda record: runs_to_the_frame(record.frames(TICK), RATE * 60 / 160 / 24, 48), "160 bpm")

    def test_the_transport_starts_and_stops_the_clock_and_its_master_sets_the_tempo(self):
        self.serve()
        self.orvane("--transport", "--clock-out", "Orvane Out", "--tempo", "120")
        record = self.source("roll", 0, 125, 20, to="none")
        self.assertEqual([part for part in record.song() if not isinstance(part, int)], [START, STOP])
        stop = record.frames(STOP)[0]
        for distance in distances([frame for frame in record.frames(TICK) if frame < stop][-24:]):
            self.assertAlmostEqual(distance, 960, delta=1)
        record = self.source("roll", 60000, 125, 2, to="none")  # ten sixteenths and more
        self.assertEqual([part for part in record.song() if not isinstance(part, int)], ["f2 0b 00", CONTINUE, STOP])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[3:], verbosity=1)
