"""What is installed, tried where nothing of the build is known: install.py CMAKE BUILD MINIMAL_HOST.cpp COMPILER

It is installed into one folder and used in another, as a package is."""
import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

CMAKE, BUILD, MINIMAL_HOST, COMPILER = sys.argv[1:5]


class Install(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        home = tempfile.TemporaryDirectory()
        cls.addClassCleanup(home.cleanup)
        cls.folder = home.name
        cls.prefix = cls.folder + "/moved here"
        subprocess.run([CMAKE, "--install", BUILD, "--prefix", cls.folder + "/installed"], check=True,
                       stdout=subprocess.DEVNULL)
        os.rename(cls.folder + "/installed", cls.prefix)
        (pc,) = (os.path.join(root, name) for root, _, names in os.walk(cls.prefix) for name in names
                 if name == "orvane.pc")
        cls.environment = {**os.environ, "PKG_CONFIG_PATH": os.path.dirname(pc), "JACK_DEFAULT_SERVER": "none",
                           "JACK_NO_START_SERVER": "1", "XDG_CONFIG_HOME": cls.folder + "/config",
                           "XDG_DATA_HOME": cls.folder + "/data", "XDG_RUNTIME_DIR": cls.folder,
                           "LANG": "C.UTF-8"}
        for name in ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "LD_LIBRARY_PATH"):
            cls.environment.pop(name, None)

    def run_there(self, *command, status=0):
        done = subprocess.run(command, env=self.environment, cwd=self.folder, capture_output=True, text=True,
                              stdin=subprocess.DEVNULL, timeout=120)
        self.assertEqual(done.returncode, status, done.stdout + done.stderr)
        return done.stdout + done.stderr

    def orvane(self, *arguments):
        return self.run_there(self.prefix + "/bin/orvane", *arguments)

    def there(self, path):
        return self.prefix + "/share/" + path

    def test_the_program_uses_what_was_installed_with_it(self):
        libraries = self.run_there("ldd", self.prefix + "/bin/orvane")
        self.assertNotIn("not found", libraries)
        (library,) = re.findall(r"libOrv3_32\.so => (.*) \(", libraries)
        self.assertTrue(os.path.realpath(library).startswith(self.prefix), library)
        self.assertIn("libKeyboardHook_32.so", os.listdir(os.path.dirname(library)))
        self.assertNotIn(os.path.dirname(BUILD), self.run_there("readelf", "-d", self.prefix + "/bin/orvane", library))
        self.assertEqual(self.orvane("--version"), "Orvane 3.2\n")

    def test_without_a_display_or_devices_it_renders_the_demonstration(self):
        said = self.orvane()
        self.assertIn("there is no display", said)
        if "Commands are read" in said:
            self.skipTest("this machine has devices to play on")
        self.assertGreater(os.path.getsize(self.folder + "/demonstration.wav"), 1000000)
        self.assertIn(b"MTrk", open(self.folder + "/demonstration.mid", "rb").read())

    def test_a_new_user_gets_the_factory_content(self):
        piece = self.folder + "/piece.perf"
        with open(piece, "w") as file:
            file.write("0 key down Q\n480 key up Q\n")
        data = self.folder + "/rendered"
        events = self.orvane("render", piece, "--data", data, "--events", "-").splitlines()
        self.assertEqual([line.split(",")[2] for line in events[-2:]], ["144", "128"], events)
        factory = self.there("orvane/Default/Sequences")
        self.assertEqual(sorted(os.listdir(data + "/Sequences")), sorted(os.listdir(factory)))

    def test_the_library_installs_and_uninstalls_for_an_installer(self):
        os.makedirs(self.folder + "/config/Brinlow Software/Orvane 3", exist_ok=True)
        with open(self.folder + "/config/Brinlow Software/Orvane 3/3.2", "w") as settings:
            settings.write(f"ProgDir=string:{self.there('orvane')}/\n")
        (library,) = (os.path.join(root, name) for root, _, names in os.walk(self.prefix) for name in names
                      if name == "libOrv3_32.so")
        data = self.folder + "/data"
        presets = data + "/Brinlow Software/Orvane 3/Layer Presets"
        shutil.rmtree(data, ignore_errors=True)
        shutil.copytree(self.there("orvane/Default/Layer Presets"), presets)
        factory = os.listdir(presets)
        with open(presets + "/Mine.pst", "w"):
            pass

        def call(operation):
            self.run_there(sys.executable, "-c", f"import ctypes; ctypes.CDLL({library!r}).{operation}()")

        call("commitPort")
        call("commitNoPort")
        self.assertEqual(sorted(os.listdir(presets)), sorted([*factory, "Mine.pst"]))
        call("uninstall")
        self.assertEqual(os.listdir(presets), ["Mine.pst"])
        os.remove(presets + "/Mine.pst")
        call("uninstall")
        self.assertEqual(os.listdir(data), [])

    def test_the_manual_comes_with_its_pictures(self):
        manual = self.there("orvane/Manual")
        for path in ("index.htm", "manual.css", "pictures/window.png", "pictures/window@2x.png"):
            self.assertTrue(os.path.isfile(os.path.join(manual, path)), path)
        self.assertEqual([name for name in os.listdir(manual) if os.path.islink(os.path.join(manual, name))], [])

    def test_a_host_of_ones_own_is_built_with_what_is_installed(self):
        flags = self.run_there("pkg-config", "--cflags", "--libs", "orvane")
        host = self.folder + "/minimal_host"
        # The folder's name has a blank, which pkg-config quotes for a shell.
        self.run_there("sh", "-c", f"'{COMPILER}' -std=c++20 '{MINIMAL_HOST}' -o '{host}' {flags.strip()}")
        played = self.run_there(host).splitlines()
        self.assertEqual([line.split(": ")[1] for line in played[-6:]],
                         [f"{status} {note} 100" for note in (60, 64, 67) for status in (90, 80)])

    def test_every_installed_header_can_be_included(self):
        headers = self.prefix + "/include/orvane"
        paths = [os.path.relpath(os.path.join(root, name), headers) for root, _, names in os.walk(headers)
                 for name in names]
        self.assertIn("api/OrvFactory.h", paths)
        everything = "".join(f'#include "{path}"\n' for path in sorted(paths))
        done = subprocess.run([COMPILER, "-std=c++20", "-fsyntax-only", "-x", "c++", "-", "-I" + headers],
                              input=everything, capture_output=True, text=True)
        self.assertEqual(done.returncode, 0, done.stderr)

    def test_the_desktop_files_describe_it(self):
        entry = self.there("applications/orvane.desktop")
        with open(entry) as file:
            said = dict(line.strip().split("=", 1) for line in file if "=" in line)
        self.assertEqual((said["Exec"], said["StartupWMClass"]), ("orvane %F", "orvane"))
        for size in ("scalable", "48x48", "128x128"):
            folder = self.there(f"icons/hicolor/{size}/apps")
            self.assertEqual([os.path.splitext(name)[0] for name in os.listdir(folder)], [said["Icon"]])
        with open(self.there("mime/packages/orvane.xml")) as file:
            types = re.findall('mime-type type="(.*)"', file.read())
        self.assertEqual(said["MimeType"].strip(";").split(";"), types)

    def test_the_menu_entry_the_description_and_the_manual_page_are_valid(self):
        description = "metainfo/software.brinlow.orvane.metainfo.xml"
        for *command, path in (("desktop-file-validate", "applications/orvane.desktop"),
                               ("appstreamcli", "validate", "--no-net", description),
                               ("groff", "-mdoc", "-ww", "-z", "man/man1/orvane.1")):
            with self.subTest(path):
                if not shutil.which(command[0]):
                    self.skipTest(command[0] + " is not installed")
                said = self.run_there(*command, self.there(path))
                self.assertTrue(command[0] == "appstreamcli" or not said, said)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[5:], verbosity=1)
