"""The program for Windows from its installation to its removal, under Wine as a new user:
windows.py WINE INSTALLER DEMONSTRATION EXPECTED MONITOR PICTURE

WINE runs a Windows program, EXPECTED is a folder with what the demonstration plays on Linux, MONITOR the library with a
MIDI output that writes down what it gets (winmm_monitor.cpp), and PICTURE is written: the window while a key is held."""
import os
import shutil
import subprocess
import sys
import tempfile
import time
import unittest

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "../../packaging"))
WINE, INSTALLER, DEMONSTRATION, EXPECTED, MONITOR, PICTURE = map(os.path.abspath, sys.argv[1:7])
import live
import screenshots
import window
from live import Program, until
from screen import Screen

PROGRAMS = "C:\\Program Files\\Orvane"
MENU = "C:\\ProgramData\\Microsoft\\Windows\\Start Menu\\Programs"
REMOVAL = "HKLM\\Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\Orvane 3 Setup"
USERS = "C:\\users"
SETTINGS = "HKCU\\Software\\Brinlow Software"


class Installed(window.WindowUser):
    def setUp(self):
        live.Graph.setUp(self)
        home = tempfile.TemporaryDirectory(ignore_cleanup_errors=True)  # Wine writes to it a while longer
        self.addCleanup(home.cleanup)
        self.home = home.name
        self.show()
        self.screen = Screen(self.display.name)
        self.addCleanup(self.screen.close)
        self.environment.update(ORVANE_WINE_HOME=self.home, WINEPATH="", WINEDLLOVERRIDES="winmm=n,b",
                                ORVANE_MONITOR=self.home + "/sent")
        open(self.home + "/sent", "w").close()

    def wine(self, *command, status=0):
        result = subprocess.run([WINE, *command], capture_output=True, timeout=live.PATIENCE, env=self.environment)
        self.assertEqual(result.returncode, status, (command, result.stderr.decode()))
        return result.stdout

    def refuse_removal(self):
        """Waits for it, as a plain start does not; the folder is the last argument, without quotation marks."""
        with open(self.path("C:\\remove.bat"), "w") as file:
            file.write(f'@"{PROGRAMS}\\Uninstall.exe" /S _?={PROGRAMS}\r\n@exit %errorlevel%\r\n')
        self.wine("cmd", "/c", "C:\\remove.bat", status=2)

    def path(self, windows):
        """Where a file of drive C is."""
        return self.home + "/prefix/drive_c/" + windows[3:].replace("\\", "/")

    def files(self, folder):
        return sorted(os.path.relpath(os.path.join(at, name), self.path(folder))
                      for at, _, names in os.walk(self.path(folder)) for name in names)

    def command_of(self, extension):
        kind = self.registered("HKCR\\" + extension)
        return self.registered(f"HKCR\\{kind}\\shell\\open\\command")

    def registered(self, key, name="/ve"):
        value = ("/ve",) if name == "/ve" else ("/v", name)
        return self.wine("reg", "query", key, *value).decode().split("REG_")[1].split(None, 1)[1].strip()

    def picture(self):
        """The width of the window, and its pixels."""
        place = self.place()
        return place[2], self.screen.pixels(*place)

    def settled(self):
        """The picture of the whole window once it does not change any more."""
        before, now = None, self.picture()
        while before != now or now[0] < 500:
            time.sleep(0.3)
            before, now = now, self.picture()
        return now

    def sent(self):
        """To the MIDI output, without what it gets at the start."""
        with open(self.environment["ORVANE_MONITOR"]) as file:
            return [line for line in file.read().splitlines() if line[:1] in "89"]

    def play_a_key(self):
        """In the window, which shows it on both of its keyboards."""
        program = Program(self, WINE, PROGRAMS + "\\bin\\orvanew.exe")
        until(lambda: self.windows() and self.screen.is_painted(), "the window")
        width, dark = self.settled()
        self.assertEqual(self.sent(), [])
        self.screen.key(window.Q, 1)
        until(lambda: self.sent() == ["90 3c 64"], "the note")
        until(lambda: self.picture()[1] != dark, "the key")
        _, lit = self.settled()
        lines = [b"".join(pixel.to_bytes(3, "big") for pixel in lit[at:at + width]) for at in range(0, len(lit), width)]
        with open(PICTURE, "wb") as file:
            file.write(screenshots.png(lines, width, len(lines)))
        quarters = {index * 4 // len(dark) for index, (one, other) in enumerate(zip(dark, lit)) if one != other}
        self.assertTrue({2, 3} <= quarters, f"the keys of the computer, and the piano below them: {quarters}")
        self.screen.key(window.Q, 0)
        until(lambda: live.sounding(self.sent()) == [] and len(self.sent()) > 1, "the note off")
        half = len(dark) // 2  # below what tells the fill of the record
        until(lambda: self.settled()[1][half:] == dark[half:], "the dark keys")
        return program

    def test_it_is_installed_plays_and_is_removed_and_leaves_what_is_the_users(self):
        self.wine(INSTALLER, "/S")
        installed = self.files(PROGRAMS)
        self.assertTrue({"bin/orvane.exe", "bin/platforms/qwindows.dll", "share/orvane/Manual/index.htm",
                         "Uninstall.exe"} <= set(installed), installed)
        self.assertIn("Orvane 3/Orvane 3.lnk", self.files(MENU))
        self.assertEqual(self.registered(REMOVAL, "DisplayName"), "Orvane 3")
        for extension in (".bnk", ".prg"):
            self.assertEqual(self.command_of(extension), f'"{PROGRAMS}\\bin\\orvanew.exe" "%1"')
        events, mid = (os.path.join(self.home, name) for name in ("events", "mid"))
        self.wine(PROGRAMS + "\\bin\\orvane.exe", "render", DEMONSTRATION, "--events", events, "--mid", mid)
        for played in (events, mid):
            with open(played, "rb") as file, open(os.path.join(EXPECTED, os.path.basename(played)), "rb") as expected:
                self.assertEqual(file.read(), expected.read(), played)

        shutil.copy(MONITOR, self.path(PROGRAMS) + "/bin/winmm.dll")
        installed = self.files(PROGRAMS)
        program = self.play_a_key()
        self.wine(INSTALLER, "/S", status=2)
        self.refuse_removal()
        self.assertEqual(self.files(PROGRAMS), installed, "nothing is changed while the program runs")
        self.close(program)
        os.remove(self.path(PROGRAMS) + "/bin/winmm.dll")
        installed.remove("bin/winmm.dll")
        own = self.files(USERS)
        self.assertTrue([name for name in own if name.endswith(".bnk")], "what the first start gave the user")

        self.wine(INSTALLER, "/S")
        self.assertEqual(self.files(PROGRAMS), installed)
        self.wine(PROGRAMS + "\\Uninstall.exe", "/S")
        until(lambda: not self.files(PROGRAMS), "the removal")  # by a copy that goes on
        self.assertNotIn("Orvane", " ".join(self.files(MENU)))
        for gone in (REMOVAL, "HKCR\\Orvane.Bank", "HKCR\\Orvane.Program", "HKCR\\.bnk"):
            self.wine("reg", "query", gone, status=1)
        self.wine("reg", "query", SETTINGS)
        self.assertLessEqual(set(own), set(self.files(USERS)))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
