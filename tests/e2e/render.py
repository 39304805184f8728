"""The offline host as its users meet it: render.py ORVANE DEMONSTRATION.perf"""
import array
import os
import subprocess
import sys
import tempfile
import unittest
import wave

ORVANE, DEMONSTRATION = sys.argv[1:3]


def program(name, channel):
    return f'<Program name="{name}"><Layers><Layer channel="{channel}"/></Layers></Program>'


class Render(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)

    def path(self, name, content=None):
        path = os.path.join(self.folder.name, name)
        if content is not None:
            with open(path, "wb") as file:
                file.write(content)
        return path

    def performance(self, *lines, name="a.perf"):
        return self.path(name, "".join(line + "\n" for line in lines).encode())

    @staticmethod
    def read(path):
        with open(path, "rb") as file:
            return file.read()

    def orvane(self, *arguments, status=0, **environment):
        result = subprocess.run([ORVANE, "render", *arguments], capture_output=True, timeout=600,
                                env={**os.environ, **environment})
        self.assertEqual(result.returncode, status, result.stderr.decode())
        return result

    def refuse(self, *arguments, **environment):
        """The one line."""
        lines = self.orvane(*arguments, status=2, **environment).stderr.decode().splitlines()
        self.assertEqual(len(lines), 1, lines)
        return lines[0]

    def events(self, *arguments):
        return self.orvane(*arguments, "--events", "-").stdout.decode().splitlines()[1:]

    def check_with_another_reader(self, *paths):
        for path in paths:
            done = subprocess.run(["mftext", path], capture_output=True)
            self.assertEqual((done.returncode, done.stderr), (0, b""))

    def test_the_demonstration_sounds_the_same_each_time_and_other_programs_read_its_file(self):
        runs = []
        for run in range(2):
            mid, wav, events = (self.path(f"{run}.{kind}") for kind in ("mid", "wav", "events"))
            self.orvane(DEMONSTRATION, "--mid", mid, "--wav", wav, "--events", events)
            runs.append([self.read(name) for name in (mid, wav, events)])
        self.assertEqual(runs[0], runs[1])
        self.check_with_another_reader(mid)
        with wave.open(wav) as sound:
            self.assertEqual((sound.getframerate(), sound.getnchannels(), sound.getsampwidth()), (48000, 2, 2))
            samples = array.array("h", sound.readframes(sound.getnframes()))
        self.assertGreater(max(samples), 1000, "silence")
        self.assertLess(max(map(abs, samples)), 32767, "clipped")
        self.assertLess(max(map(abs, samples[-4800:])), 1500, "still ringing at the end")
        lines = self.read(events).decode().splitlines()[1:]
        sounding = set()
        for line in lines:
            _, output, status, note, velocity = map(int, line.split(","))
            if status & 0xF0 == 0x90:
                sounding.add((output, status & 15, note))
            elif status & 0xF0 == 0x80:
                sounding.discard((output, status & 15, note))
        self.assertEqual(sounding, set())
        self.assertGreater(len(lines), 300)

    def test_what_it_wrote_it_reads_back_among_other_inputs(self):
        first = self.path("a.mid")
        self.orvane(self.performance("10 midi 0 90 3C 64", "20 midi 0 E3 01 40", "30 midi 0 80 3C 40"), "--mid", first)
        other = self.performance("21 play 0 0 -1 144 62 1")
        self.assertEqual(self.events(first, other)[:4],
                         ["12,0,144,60,100", "22,0,224,1,64", "22,0,144,62,1", "32,0,128,60,64"])

    def test_programs_and_banks_are_loaded_before_and_while_it_plays(self):
        bank = self.path("setups.bnk", f"<Bank>{program('A', 1)}{program('B', 2)}</Bank>".encode())
        other = self.path("other.prg", f"<ProgramFile>{program('C', 3)}</ProgramFile>".encode())
        performance = self.performance("0 midi 0 90 3C 64", "10 load other.prg", "10 midi 0 90 3D 64")

        def played(*options):
            return self.events(performance, "--tail", "5", *options)
        self.assertEqual(played()[0], "1,0,144,60,100", "the first-run default bank")
        self.assertEqual(played("--load", bank), ["1,0,145,60,100", "10,0,129,60,100", "11,0,147,61,100",
                                                  "16,0,131,61,100"])
        self.assertEqual(played("--load", bank, "--number", "1")[0], "1,0,146,60,100")
        self.assertEqual(played("--load", bank, "--load", other)[0], "1,0,147,60,100")

    def test_the_record_is_saved_under_its_stem_and_other_programs_read_it(self):
        performance = self.performance("0 play 0 0 -1 144 60 100", "192 play 0 0 -1 128 60 64",
                                       "192 play 1 0 -1 242 1 2", "9600 play 0 2 -1 192 7 0", "10000 record takes/a",
                                       "10000 record takes/a", "10096 play 0 0 -1 144 61 1", "10100 record takes/a")
        os.mkdir(self.path("takes"))
        self.orvane(performance, "--events", self.path("events"), "--outputs", "3")
        names = ["a_Out 1.mid", "a_Out 1_0.mid", "a_Out 2.mid"]
        self.assertEqual(sorted(os.listdir(self.path("takes"))), names)
        paths = [self.path("takes/" + name) for name in names]
        self.check_with_another_reader(*paths)
        end = b"\0\xB0\x78\0\0\xFF\x2F\0"
        # 125 / 120 milliseconds a pulse, 5 a tick: 1 and 192 pulses; then seconds of silence, cut to seven
        self.assertEqual([self.read(path)[22:] for path in paths],
                         [b"\0\x90\x3C\x64\x28\x80\x3C\x40\x8A\x78\xC2\x07" + end, b"\x14\x90\x3D\x01" + end,
                          b"\x28\xF7\x03\xF2\x01\x02" + end])
        slow = self.path("slow.prg", b'<ProgramFile><Program tempo="60"/></ProgramFile>')
        os.remove(paths[0])
        self.orvane(performance, "--events", self.path("events"), "--load", slow)
        self.assertIn(b"\x90\x3C\x64\x50\x80", self.read(paths[0]), "at half the tempo twice the time")

    def test_the_displays_text_is_written(self):
        performance = self.performance("0 midi 1 90 3C 64", "5 midi 1 90 3C 0", "5 play 1 9 -1 192 7 0")
        text = self.path("a.txt")
        self.orvane(performance, "--display", text)
        self.assertEqual(self.read(text), b"Orvane 3.2\r\nOut 1\t1\tNote On\t60 (C4)\t100\r\n"
                         b"Out 1\t1\tNote Off\t60 (C4)\t100\r\nOut 2\t10\tProgram Change\t7 (Clav)\r\n")
        self.orvane(performance, "--display", text, "--set", "DisplayMidiInputEvents=1", "--set", "DisplayNumbers=1")
        self.assertEqual(self.read(text).decode().splitlines()[1:4], [
            "1  > In 2\t1\tNote On\t60 (C4)\t100", "2  Out 1\t1\tNote On\t60 (C4)\t100",
            "3  > In 2\t1\tNote On\t60 (C4)\t0"])

    def test_bad_input_is_one_line_status_2_and_no_file(self):
        good = self.performance("0 play 0 0 -1 144 60 100", name="good.perf")
        bad = self.performance("0 play 0 0 -1 144 60 100", "", "5 pluy 0", name="bad.perf")
        cut = self.path("cut.mid", b"MThd\0\0\0\6\0\1\0\1\1\xe0MTrk\0\0\0\x10\0\x90")
        unwritable = self.performance("0 play 0 0 -1 144 60 100", "9 record " + 250 * "a", name="record.perf")
        kept = self.path("kept.events", b"old")
        for arguments, named in (([bad], "bad.perf:3"), ([cut], "cut.mid"), ([self.path("none.perf")], "none.perf"),
                                 ([self.folder.name], ""), ([], ""), ([good, bad], "bad.perf:3"), ([unwritable], "aaa"),
                                 ([good, "--slice", "5000"], "--slice"), ([good, "--slice", "0"], "--slice"),
                                 ([good, "--outputs", "two"], "--outputs"), ([good, "--tail", "-1"], "--tail"),
                                 ([good, "--nonsense"], "--nonsense"), ([good, "--load", "x.bnk"], "x.bnk"),
                                 ([good, "--load", good], "good.perf"), ([good, "--seed", "-1"], "--seed"),
                                 ([good, "--seed", "4294967296"], "--seed"), ([good, "--set", "MidiThru=2"], "=2")):
            self.assertIn(named, self.refuse(*arguments, "--events", kept, "--mid", self.path("out.mid")))
            self.assertEqual((self.read(kept), os.path.exists(self.path("out.mid"))), (b"old", False), arguments)
        self.refuse(good)  # nothing to write
        self.refuse(good, "--events", self.path("none/out.events"), "--mid", self.path("out.mid"))
        self.assertFalse(os.path.exists(self.path("out.mid")), "one of two files failed: neither is written")
        self.assertIn("space", self.refuse(good, "--events", "/dev/full"))

    def test_what_is_dropped_is_written_to_the_debug_stream(self):
        performance = self.performance("0 play 5 0 -1 144 60 100", "0 midi 9 90 3C 64")
        self.assertEqual(self.orvane(performance, "--events", "-").stderr, b"")
        written = self.orvane(performance, "--events", "-", ORVANE_DEBUG="1").stderr.decode()
        self.assertIn("output 5", written)
        self.assertIn("input 9", written)

    def test_the_users_own_folders_are_left_alone_and_a_data_folder_is_kept(self):
        home, temporary, data = self.path("home"), self.path("tmp"), self.path("new/data")
        os.makedirs(home)
        os.makedirs(temporary)
        performance = self.performance("0 midi 0 90 3C 64")
        private = {"HOME": home, "XDG_DATA_HOME": home, "XDG_CONFIG_HOME": home, "TMPDIR": temporary}
        self.orvane(performance, "--events", "-", **private)
        self.orvane(performance, "--events", "-", "--data", data, **private)
        self.refuse(performance, "--events", "-", "--set", "MidiThru=x", **private)
        self.assertEqual((os.listdir(home), os.listdir(temporary)), ([], []))
        self.assertIn("Banks", os.listdir(data))
        self.assertIn(performance, self.refuse(performance, "--events", "-", "--data", performance, **private))


unittest.main(argv=sys.argv[:1], verbosity=1)
