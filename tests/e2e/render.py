"""The offline host as its users meet it: render.py ORVANE DEMONSTRATION.perf MIDI_FILE_READERS.sh"""
import array
import os
import subprocess
import sys
import tempfile
import unittest
import wave

ORVANE, DEMONSTRATION, READERS = sys.argv[1:4]


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

    @staticmethod
    def read(path):
        with open(path, "rb") as file:
            return file.read()

    def orvane(self, *arguments, status=0, **environment):
        result = subprocess.run([ORVANE, "render", *arguments], capture_output=True, timeout=120,
                                env={**os.environ, **environment})
        self.assertEqual(result.returncode, status, result.stderr.decode())
        return result

    def test_the_demonstration_sounds_and_other_programs_read_its_file(self):
        mid, wav, events = self.path("d.mid"), self.path("d.wav"), self.path("d.events")
        self.orvane(DEMONSTRATION, "--mid", mid, "--wav", wav, "--events", events)
        subprocess.run(["sh", READERS, mid], check=True)
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

    def test_the_same_performance_gives_the_same_bytes(self):
        runs = []
        for run in range(3):
            names = [self.path(f"{run}.{kind}") for kind in ("mid", "wav", "events")]
            self.orvane(DEMONSTRATION, "--mid", names[0], "--wav", names[1], "--events", names[2])
            runs.append([self.read(name) for name in names])
        self.assertEqual(runs[0], runs[1])
        self.assertEqual(runs[0], runs[2])

    def test_what_it_wrote_it_reads_back(self):
        first, second = self.path("a.mid"), self.path("b.mid")
        performance = self.path("a.perf", b"10 midi 0 90 3C 64\n20 midi 0 E3 01 40\n30 midi 0 80 3C 40\n")
        self.orvane(performance, "--mid", first)
        events = self.orvane(first, "--events", "-").stdout.decode().splitlines()
        self.assertEqual(events[1:], ["12,0,144,60,100", "22,0,224,1,64", "32,0,128,60,64"])
        self.orvane(first, "--mid", second)

    def test_several_inputs_are_merged_by_time(self):
        a = self.path("a.perf", b"5 play 0 0 -1 144 60 1\n7 play 0 0 -1 144 61 1\n")
        b = self.path("b.perf", b"5 play 0 0 -1 144 62 1\n6 play 0 0 -1 144 63 1\n")
        events = self.orvane(b, a, "--events", "-", "--tail", "0").stdout.decode().splitlines()
        self.assertEqual(events[1:5], ["6,0,144,62,1", "6,0,144,60,1", "7,0,144,63,1", "8,0,144,61,1"])

    def test_programs_and_banks_are_loaded_before_and_while_it_plays(self):
        def program(name, channel):
            return f'<Program name="{name}"><Layers><Layer channel="{channel}"/></Layers></Program>'
        bank = self.path("setups.bnk", f"<Bank>{program('A', 1)}{program('B', 2)}</Bank>".encode())
        other = self.path("other.prg", f"<ProgramFile>{program('C', 3)}</ProgramFile>".encode())
        performance = self.path("a.perf", b"0 midi 0 90 3C 64\n10 load other.prg\n10 midi 0 90 3D 64\n")

        def played(*options):
            return self.orvane(performance, "--tail", "5", "--events", "-", *options).stdout.decode().splitlines()[1:]
        self.assertEqual(played()[0], "1,0,144,60,100", "the first-run default bank")
        self.assertEqual(played("--load", bank), ["1,0,145,60,100", "10,0,129,60,100", "11,0,147,61,100",
                                                  "16,0,131,61,100"])
        self.assertEqual(played("--load", bank, "--number", "1")[0], "1,0,146,60,100")
        self.assertEqual(played("--load", bank, "--load", other)[0], "1,0,147,60,100")

    def test_the_record_is_saved_under_its_stem_and_other_programs_read_it(self):
        performance = self.path("a.perf", b"0 play 0 0 -1 144 60 100\n"
                                b"192 play 0 0 -1 128 60 64\n192 play 1 0 -1 242 1 2\n9600 play 0 2 -1 192 7 0\n"
                                b"10000 record takes/a\n10000 record takes/a\n10096 play 0 0 -1 144 61 1\n"
                                b"10100 record takes/a\n")
        folder = self.path("takes")
        os.mkdir(folder)
        contents = []
        for run in range(2):
            self.orvane(performance, "--events", self.path("events"), "--outputs", "3")
            self.assertEqual(sorted(os.listdir(folder)), ["a_Out 1.mid", "a_Out 1_0.mid", "a_Out 2.mid"])
            paths = [os.path.join(folder, name) for name in sorted(os.listdir(folder))]
            subprocess.run(["sh", READERS, *paths], check=True)
            contents.append([self.read(path) for path in paths])
            for path in paths:
                os.remove(path)
        self.assertEqual(contents[0], contents[1])
        end = b"\0\xB0\x78\0\0\xFF\x2F\0"
        # 125 / 120 milliseconds a pulse, 5 a tick: 1 and 192 pulses; then seconds of silence, cut to seven
        self.assertEqual(contents[0][0][22:], b"\0\x90\x3C\x64\x28\x80\x3C\x40\x8A\x78\xC2\x07" + end)
        self.assertEqual(contents[0][1][22:], b"\x14\x90\x3D\x01" + end)
        self.assertEqual(contents[0][2][22:], b"\x28\xF7\x03\xF2\x01\x02" + end)
        slow = self.path("slow.prg", b'<ProgramFile><Program tempo="60"/></ProgramFile>')
        self.orvane(performance, "--events", self.path("events"), "--load", slow)
        self.assertIn(b"\x90\x3C\x64\x50\x80", self.read(paths[0]), "at half the tempo twice the time")

    def test_a_record_that_cannot_be_written_is_one_line(self):
        folder = self.path("takes")
        os.mkdir(folder)
        os.makedirs(os.path.join(folder, "a_Out 1.mid"))
        for number in range(501):
            os.mkdir(os.path.join(folder, f"a_Out 1_{number}.mid"))
        performance = self.path("a.perf", b"0 play 0 0 -1 144 60 100\n9 record takes/a\n")
        lines = self.orvane(performance, "--events", self.path("e"), status=2).stderr.decode().splitlines()
        self.assertEqual(len(lines), 1)
        self.assertIn("a_Out 1_500.mid", lines[0])
        self.assertFalse(os.path.exists(self.path("e")))

    def test_the_displays_text_is_written(self):
        performance = self.path("a.perf", b"0 midi 1 90 3C 64\n5 midi 1 90 3C 0\n5 play 1 9 -1 192 7 0\n")
        text = self.path("a.txt")
        self.orvane(performance, "--display", text)
        self.assertEqual(self.read(text), b"Orvane 3.2\r\nOut 1\t1\tNote On\t60 (C4)\t100\r\n"
                         b"Out 1\t1\tNote Off\t60 (C4)\t100\r\nOut 2\t10\tProgram Change\t7 (Clav)\r\n")
        self.orvane(performance, "--display", text, "--set", "DisplayMidiInputEvents=1", "--set", "DisplayNumbers=1")
        self.assertEqual(self.read(text).decode().splitlines()[1:4], [
            "1  > In 2\t1\tNote On\t60 (C4)\t100", "2  Out 1\t1\tNote On\t60 (C4)\t100",
            "3  > In 2\t1\tNote On\t60 (C4)\t0"])

    def test_bad_input_is_one_line_status_2_and_no_file(self):
        good = self.path("good.perf", b"0 play 0 0 -1 144 60 100\n")
        bad = self.path("bad.perf", b"0 play 0 0 -1 144 60 100\n\n5 pluy 0\n")
        later = self.path("later.perf", b"0 key down Nonsense\n")
        cut = self.path("cut.mid", b"MThd\0\0\0\6\0\1\0\1\1\xe0MTrk\0\0\0\x10\0\x90")
        cases = [([bad], "bad.perf:3"), ([later], "later.perf:1"), ([cut], "cut.mid"),
                 ([self.path("missing.perf")], "missing.perf"), ([self.folder.name], ""), ([], ""),
                 ([good, "--slice", "5000"], "--slice"), ([good, "--slice", "0"], "--slice"),
                 ([good, "--outputs", "two"], "--outputs"), ([good, "--tail", "-1"], "--tail"),
                 ([good, "--nonsense"], "--nonsense"), ([good, "--load", "x.bnk"], "x.bnk"), ([good, "--load", good], "good.perf"),
                 ([good, "--seed", "-1"], "--seed"), ([good, "--seed", "4294967296"], "--seed"), ([good, bad], "bad.perf:3")]
        for arguments, named in cases:
            out = self.path("out.events")
            result = self.orvane(*arguments, "--events", out, "--mid", self.path("out.mid"), status=2)
            lines = result.stderr.decode().splitlines()
            self.assertEqual(len(lines), 1, result.stderr)
            self.assertIn(named, lines[0])
            self.assertFalse(os.path.exists(out))
        self.assertEqual(len(self.orvane(good, status=2).stderr.splitlines()), 1, "nothing to write")
        self.orvane(good, "--events", self.path("none/out.events"), "--mid", self.path("out.mid"), status=2)
        self.assertFalse(os.path.exists(self.path("out.mid")), "one of two files failed: neither is written")
        self.assertIn(b"space", self.orvane(good, "--events", "/dev/full", status=2).stderr)

    def test_what_is_dropped_is_written_to_the_debug_stream(self):
        performance = self.path("a.perf", b"0 play 5 0 -1 144 60 100\n0 midi 9 90 3C 64\n")
        self.assertEqual(self.orvane(performance, "--events", "-").stderr, b"")
        written = self.orvane(performance, "--events", "-", ORVANE_DEBUG="1").stderr.decode()
        self.assertIn("output 5", written)
        self.assertIn("input 9", written)

    def test_settings_are_chosen_by_their_stored_names(self):
        performance = self.path("a.perf", b"0 midi 0 90 3C 64\n0 play -1 0 -1 144 62 100\n")
        def notes(*choices):
            lines = self.orvane(performance, "--events", "-", "--tail", "9", *choices).stdout.decode().splitlines()
            return [line for line in lines if ",144," in line]
        self.assertEqual(notes(), ["1,0,144,60,100", "1,0,144,62,100"])
        self.assertEqual(notes("--set", "MidiThru=0", "--set", "DefaultMidiOutput=1"), ["1,1,144,62,100"])
        for choice in ("MidiThru=maybe", "Nonsense=1", "MidiThru"):
            lines = self.orvane(performance, "--events", "-", "--set", choice, status=2).stderr.decode().splitlines()
            self.assertEqual(len(lines), 1)
            self.assertIn(choice, lines[0])

    def test_the_users_own_folders_are_left_alone_and_a_data_folder_is_kept(self):
        home, temporary, data = self.path("home"), self.path("tmp"), self.path("new/data")
        os.makedirs(home)
        os.makedirs(temporary)
        performance = self.path("a.perf", b"0 midi 0 90 3C 64\n")
        private = {"HOME": home, "XDG_DATA_HOME": home, "XDG_CONFIG_HOME": home, "TMPDIR": temporary}
        self.orvane(performance, "--events", "-", **private)
        self.orvane(performance, "--events", "-", "--data", data, **private)
        self.orvane(performance, "--events", "-", "--set", "MidiThru=x", status=2, **private)
        self.assertEqual((os.listdir(home), os.listdir(temporary)), ([], []))
        self.assertIn("Banks", os.listdir(data))
        result = self.orvane(performance, "--events", "-", "--data", performance, status=2, **private)
        self.assertEqual(len(result.stderr.splitlines()), 1)
        self.assertIn(performance, result.stderr.decode())

    def test_a_rolled_back_file_keeps_its_old_content(self):
        kept = self.path("kept.events", b"old")
        self.orvane(self.path("bad.perf", b"x\n"), "--events", kept, status=2)
        self.assertEqual(self.read(kept), b"old")


unittest.main(argv=sys.argv[:1], verbosity=1)
