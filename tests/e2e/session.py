"""A session of several programs, opened, saved and ended by a session manager of the test's own:
session.py ORVANE MIDI_SOURCE MIDI_FILE_READERS.sh X_CLIENT"""
import os
import shutil
import signal
import socket
import struct
import unittest

import live
import window
from live import Monitor, Program, sounding, until


def padded(data):
    return data + b"\0" * (4 - len(data) % 4)


def pack(path, *values):
    """A message of Open Sound Control, version 1.0."""
    types, data = ",", b""
    for value in values:
        if isinstance(value, int):
            types, data = types + "i", data + struct.pack(">i", value)
        else:
            types, data = types + "s", data + padded(value.encode())
    return padded(path.encode()) + padded(types.encode()) + data


def unpack(packet):
    def text():
        nonlocal packet
        end = packet.index(b"\0")
        found, packet = packet[:end].decode(), packet[end // 4 * 4 + 4:]
        return found

    def number():
        nonlocal packet
        found, packet = struct.unpack(">i", packet[:4])[0], packet[4:]
        return found

    path, types = text(), text()
    return (path, *({"s": text, "i": number}[kind]() for kind in types[1:]))


class Manager:
    """What a session manager says and hears."""

    def __init__(self, test):
        self.test = test
        self.socket = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
        test.addCleanup(self.socket.close)
        self.socket.bind(("127.0.0.1", 0))
        self.socket.settimeout(live.PATIENCE)
        self.url = f"osc.udp://127.0.0.1:{self.socket.getsockname()[1]}/"
        self.client = None

    def hear(self):
        packet, self.client = self.socket.recvfrom(1 << 16)
        return unpack(packet)

    def say(self, *message):
        self.socket.sendto(pack(*message), self.client)

    def welcome(self):
        """The announcement, which is answered."""
        said = self.hear()
        self.say("/reply", "/nsm/server/announce", "Welcome", "a test", ":server-control:")
        return said

    def open(self, folder, client="orvane.nTEST"):
        self.say("/nsm/client/open", folder, "A Session", client)

    def opened(self):
        self.test.assertEqual(self.hear(), ("/reply", "/nsm/client/open", "OK"))

    def save(self):
        self.say("/nsm/client/save")
        return self.hear()


class Session(live.Graph):
    def setUp(self):
        super().setUp()
        self.manager = Manager(self)
        self.environment["NSM_URL"] = self.manager.url
        self.session = self.folder + "/sessions/Evening/orvane.nTEST"
        self.serve()

    def start(self, *arguments, folder=None):
        orvane = Program(self, live.ORVANE, *(arguments or ("run",)))
        self.manager.welcome()
        self.manager.open(folder or self.session)
        self.manager.opened()
        return orvane

    def save(self):
        self.assertEqual(self.manager.save(), ("/reply", "/nsm/client/save", "OK"))

    def program(self, folder=None):
        with open((folder or self.session) + "/program.xml") as file:
            return file.read()

    def bank(self, path, names, tempo=100):
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "w") as file:
            file.write("<Bank>\n" + "".join(f'<Program name="{name}" tempo="{tempo}">\n</Program>\n' for name in names)
                       + "</Bank>\n")
        return path

    def own(self):
        """Every file of the user's own folders, with its content."""
        files = {}
        for top in ("data", "config"):
            for root, _, names in os.walk(self.folder + "/" + top):
                for name in names:
                    with open(os.path.join(root, name), "rb") as file:
                        files[os.path.join(root, name)] = file.read()
        return files

    def test_it_announces_itself_and_has_the_name_and_the_folder_that_it_is_given(self):
        orvane = Program(self, live.ORVANE, "run")
        self.assertEqual(self.manager.hear(),
                         ("/nsm/server/announce", "Orvane", "", "orvane", 1, 0, orvane.process.pid))
        self.manager.say("/reply", "/nsm/server/announce", "Welcome", "a test", "")
        self.manager.open(self.session)
        self.manager.opened()
        until(lambda: "Commands are read" in orvane.printed, "orvane")
        self.assertIn("orvane.nTEST:", self.tool("jack_lsp"))
        self.assertTrue(os.path.isdir(self.session + "/data/Banks"))
        self.assertEqual(self.own(), {})

        self.manager.open(self.folder + "/another")
        self.assertEqual(self.manager.hear()[:3], ("/error", "/nsm/client/open", -8))
        self.assertEqual(orvane.end(signal.SIGTERM), 0, orvane.complained)
        self.assertEqual(orvane.complained, "")

    def test_what_is_saved_is_there_when_the_session_is_opened_again(self):
        bank = self.bank(self.folder + "/My Bank.bnk", ["First", "Second"])
        with open(bank) as file:
            before = file.read()
        orvane = self.start()
        orvane.say("load " + bank)
        orvane.say('function <ChangeProgram type="1"/>')
        orvane.say('function <ChangeTempo value="77"/>')
        until(lambda: self.manager.save() and 'name="Second" tempo="77"' in self.program(), "what was said")
        orvane.say('function <ChangeTempo value="200"/>')  # is not saved
        self.assertEqual(orvane.end(signal.SIGTERM), 0, orvane.complained)

        orvane = self.start()
        self.save()
        self.assertIn('name="Second" tempo="77"', self.program())
        orvane.say('function <ChangeProgram type="0"/>')
        until(lambda: self.manager.save() and 'name="First" tempo="100"' in self.program(), "the other program")
        self.assertEqual(orvane.end(signal.SIGTERM), 0, orvane.complained)
        with open(bank) as file:
            self.assertEqual(file.read(), before)

        os.remove(bank)
        orvane = self.start()
        until(lambda: "bank cannot be loaded" in orvane.complained, "the complaint")
        self.save()
        self.assertIn('name="First" tempo="100"', self.program())

    def test_a_new_session_begins_as_the_users_own_setup_and_leaves_it_alone(self):
        environment = {name: value for name, value in self.environment.items() if name != "NSM_URL"}
        orvane = Program(self, live.ORVANE, "run", env=environment)
        until(lambda: "Commands are read" in orvane.printed, "orvane")
        self.assertEqual(orvane.end(signal.SIGTERM), 0, orvane.complained)
        (data,) = (root for root, folders, _ in os.walk(self.folder + "/data") if "Banks" in folders)
        self.bank(data + "/Banks/Default Bank.bnk", ["Mine"], tempo=111)
        before = self.own()

        self.start()
        self.save()
        self.assertIn('name="Mine" tempo="111"', self.program())
        self.assertEqual(self.own(), before)
        self.assertEqual(sorted(os.listdir(self.session + "/data/Sequences")), sorted(os.listdir(data + "/Sequences")))

    def test_a_session_that_was_copied_has_banks_of_its_own(self):
        orvane = self.start()
        self.save()
        self.assertEqual(orvane.end(signal.SIGTERM), 0, orvane.complained)
        copy = self.folder + "/sessions/Next Evening/orvane.nTEST"
        shutil.copytree(self.session, copy)
        shutil.rmtree(self.session)
        self.bank(copy + "/data/Banks/Default Bank.bnk", ["One", "Two"], tempo=99)
        orvane = self.start(folder=copy)
        orvane.say('function <ChangeProgram type="1"/>')
        until(lambda: self.manager.save() and 'name="Two" tempo="99"' in self.program(copy), "the bank of the copy")

    def test_what_cannot_be_opened_or_saved_is_said(self):
        orvane = Program(self, live.ORVANE, "run")
        self.manager.welcome()
        with open(self.folder + "/a file", "w"):
            pass
        self.manager.open(self.folder + "/a file/orvane.nTEST")
        self.assertEqual(self.manager.hear()[:2], ("/error", "/nsm/client/open"))
        self.assertEqual(orvane.process.wait(live.PATIENCE), 2, orvane.complained)

        self.start()
        os.mkdir(self.session + "/program.xml")
        self.assertEqual(self.manager.save()[:2], ("/error", "/nsm/client/save"))
        os.rmdir(self.session + "/program.xml")
        self.save()

    def test_without_an_answer_or_with_a_refusal_it_plays_without_a_session(self):
        orvane = Program(self, live.ORVANE, "run")
        self.manager.hear()
        self.manager.say("/error", "/nsm/server/announce", -2, "too new for me")
        until(lambda: "Commands are read" in orvane.printed, "orvane")
        self.assertIn("too new for me", orvane.complained)
        self.assertEqual(orvane.end(signal.SIGTERM), 0)

        for url in (self.manager.url, "what is this?"):
            orvane = Program(self, live.ORVANE, "run", env={**self.environment, "NSM_URL": url})
            until(lambda: "Commands are read" in orvane.printed, "orvane")
            self.assertIn("does not belong to a session", orvane.complained)
            self.assertEqual(orvane.end(signal.SIGTERM), 0)

    def test_with_a_window_and_without_one_it_is_saved_and_ends_with_every_note_off(self):
        monitor = Monitor(self, "monitor")
        connect = ("--default-output", "Orvane Out", "--connect", "orvane.nTEST:Orvane Out=monitor:input")
        display = window.Display(self)
        for how in ("run", "window"):
            with self.subTest(how):
                if how == "window":
                    self.environment["DISPLAY"] = display.name
                orvane = self.start(*(["run"] if how == "run" else []), *connect)
                until(lambda: "ends every note" in orvane.printed, "orvane")
                keys = Program(self, live.MIDI_SOURCE, "keys", "orvane.nTEST:Orvane In", "0:903c64", "60000:800000")
                until(lambda: sounding(monitor.received) == ["3c"], "the note")
                self.save()
                self.assertEqual(orvane.end(signal.SIGTERM), 0, orvane.complained)
                until(lambda: not sounding(monitor.received), "the note-off")
                keys.clean()


if __name__ == "__main__":
    unittest.main(argv=live.sys.argv[:1] + live.sys.argv[5:], verbosity=1)
