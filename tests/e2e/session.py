"""A session of several programs, opened, saved and ended by a session manager of the test's own:
session.py ORVANE MIDI_PEER"""
import glob
import os
import shutil
import signal
import socket
import struct
import time
import unittest

import live
import window
from live import Monitor, Program, sounding, until


def padded(data):
    return data + b"\0" * (4 - len(data) % 4)


def pack(path, *values):
    """A message of Open Sound Control, version 1.0."""
    types = "," + "".join("i" if isinstance(value, int) else "s" for value in values)
    return padded(path.encode()) + padded(types.encode()) + b"".join(
        struct.pack(">i", value) if isinstance(value, int) else padded(value.encode()) for value in values)


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
    """A session manager."""

    def __init__(self, test):
        self.socket = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
        test.addCleanup(self.socket.close)
        self.socket.bind(("127.0.0.1", 0))
        self.socket.settimeout(live.PATIENCE)
        self.url = f"osc.udp://127.0.0.1:{self.socket.getsockname()[1]}/"
        self.client = None

    def receive(self):
        packet, self.client = self.socket.recvfrom(1 << 16)
        return unpack(packet)

    def send(self, *message):
        self.socket.sendto(pack(*message), self.client)

    def welcome(self):
        """The announcement, which is answered."""
        announcement = self.receive()
        self.send("/reply", "/nsm/server/announce", "Welcome", "a test", ":server-control:")
        return announcement

    def open(self, folder):
        """The answer."""
        self.send("/nsm/client/open", folder, "A Session", "orvane.nTEST")
        return self.receive()

    def save(self):
        """The answer."""
        self.send("/nsm/client/save")
        return self.receive()


class Session(live.Graph):
    def setUp(self):
        super().setUp()
        self.manager = Manager(self)
        self.environment["NSM_URL"] = self.manager.url
        self.session = self.folder + "/sessions/Evening/orvane.nTEST"
        self.serve()

    def launch(self, *arguments, **environment):
        orvane = Program(self, live.ORVANE, *(arguments or ("run",)), env={**self.environment, **environment})
        self.started.append(orvane)
        return orvane

    def start(self, *arguments, folder=None):
        """In a session."""
        orvane = self.launch(*arguments)
        self.manager.welcome()
        self.assertEqual(self.manager.open(folder or self.session), ("/reply", "/nsm/client/open", "OK"))
        return orvane

    def end(self, orvane):
        self.assertEqual(orvane.end(signal.SIGTERM), 0, orvane.complained)

    def save(self):
        self.assertEqual(self.manager.save(), ("/reply", "/nsm/client/save", "OK"))

    def program(self, folder=None):
        with open((folder or self.session) + "/program.xml") as file:
            return file.read()

    def recovery(self):
        """What is not saved."""
        for path in glob.glob(self.session + "/**/recovery-1", recursive=True):
            with open(path) as file:
                return file.read()
        return ""

    def await_program(self, name, tempo, folder=None):
        until(lambda: self.manager.save() and f'name="{name}" tempo="{tempo}"' in self.program(folder), name)

    def bank(self, path, names, tempo=100):
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "w") as file:
            file.write("<Bank>\n" + "".join(f'<Program name="{name}" tempo="{tempo}">\n</Program>\n' for name in names)
                       + "</Bank>\n")
        return path

    def files(self, *tops):
        """Every file of some folders, with its content."""
        files = {}
        for top in tops:
            for root, _, names in os.walk(self.folder + "/" + top):
                for name in names:
                    with open(os.path.join(root, name), "rb") as file:
                        files[os.path.join(root, name)] = file.read()
        return files

    def test_it_announces_itself_and_has_the_name_and_the_folder_that_it_is_given(self):
        orvane = self.launch()
        self.assertEqual(self.manager.welcome(),
                         ("/nsm/server/announce", "Orvane", "", "orvane", 1, 0, orvane.process.pid))
        self.assertEqual(self.manager.open(self.session), ("/reply", "/nsm/client/open", "OK"))
        orvane.await_start("Commands are read")
        self.assertIn("orvane.nTEST:", self.tool("jack_lsp"))
        self.assertTrue(os.path.isdir(self.session + "/data/Banks"))
        self.assertEqual(self.files("data", "config"), {})

        self.assertEqual(self.manager.open(self.folder + "/another")[:3], ("/error", "/nsm/client/open", -8))
        self.end(orvane)
        self.assertEqual(orvane.complaints, [])

    def test_what_is_saved_is_there_when_the_session_is_opened_again(self):
        bank = self.bank(self.folder + "/banks/My Bank.bnk", ["First", "Second"])
        before = self.files("banks")
        orvane = self.start()
        orvane.say("load " + bank, 'function <ChangeProgram type="1"/>', 'function <ChangeTempo value="77"/>')
        self.await_program("Second", 77)
        orvane.say('function <ChangeTempo value="200"/>')  # is not saved
        self.end(orvane)

        orvane = self.start()
        self.save()
        self.assertIn('name="Second" tempo="77"', self.program())
        orvane.say('function <ChangeProgram type="0"/>')
        self.await_program("First", 100)
        self.end(orvane)
        self.assertEqual(self.files("banks"), before)

        os.remove(bank)
        orvane = self.start()
        orvane.await_complaint("bank cannot be loaded")
        self.save()
        self.assertIn('name="First" tempo="100"', self.program())

    def test_a_new_session_begins_as_the_users_own_setup_and_leaves_it_alone(self):
        orvane = self.launch(NSM_URL="")
        orvane.await_start("Commands are read")
        self.end(orvane)
        (data,) = (root for root, folders, _ in os.walk(self.folder + "/data") if "Banks" in folders)
        self.bank(data + "/Banks/Default Bank.bnk", ["Mine"], tempo=111)
        before = self.files("data", "config")

        self.start()
        self.save()
        self.assertIn('name="Mine" tempo="111"', self.program())
        self.assertEqual(self.files("data", "config"), before)
        self.assertEqual(sorted(os.listdir(self.session + "/data/Sequences")), sorted(os.listdir(data + "/Sequences")))

    def test_a_session_that_was_copied_has_banks_of_its_own(self):
        orvane = self.start()
        self.save()
        self.end(orvane)
        copy = self.folder + "/sessions/Next Evening/orvane.nTEST"
        shutil.move(self.session, copy)
        self.bank(copy + "/data/Banks/Default Bank.bnk", ["One", "Two"], tempo=99)
        orvane = self.start(folder=copy)
        orvane.say('function <ChangeProgram type="1"/>')
        self.await_program("Two", 99, copy)

    def test_what_cannot_be_opened_or_saved_is_said(self):
        orvane = self.launch()
        self.manager.welcome()
        answer = self.manager.open(self.write("a file", "") + "/orvane.nTEST")
        self.assertEqual(answer[:2], ("/error", "/nsm/client/open"))
        self.assertEqual(orvane.process.wait(live.PATIENCE), 2, orvane.complained)

        self.start()
        os.mkdir(self.session + "/program.xml")
        self.assertEqual(self.manager.save()[:2], ("/error", "/nsm/client/save"))
        os.rmdir(self.session + "/program.xml")
        self.save()

    def test_without_an_answer_or_with_a_refusal_it_plays_without_a_session(self):
        orvane = self.launch()
        self.manager.receive()
        self.manager.send("/error", "/nsm/server/announce", -2, "too new for me")
        orvane.await_start("Commands are read")
        self.assertIn("too new for me", orvane.complained)
        self.end(orvane)

        for url in (self.manager.url, "what is this?"):
            orvane = self.launch(NSM_URL=url)
            orvane.await_start("Commands are read")
            self.assertIn("does not belong to a session", orvane.complained)
            self.end(orvane)

    def test_with_a_window_and_without_one_it_is_saved_and_ends_with_every_note_off(self):
        monitor = Monitor(self)
        display = window.Display(self)
        for how in ("run", "window"):
            with self.subTest(how):
                if how == "window":
                    self.environment["DISPLAY"] = display.name
                orvane = self.start(*(["run"] if how == "run" else []), "--default-output", "Orvane Out", "--connect",
                                    "orvane.nTEST:Orvane Out=monitor:input")
                orvane.await_start("ends every note")
                keys = self.hold("0:903c64", to="orvane.nTEST:Orvane In")
                until(lambda: sounding(monitor.received) == ["3c"], "the note")
                self.save()
                self.end(orvane)
                until(lambda: not sounding(monitor.received), "the note-off")
                keys.clean()

    def test_after_a_kill_a_session_goes_on_if_it_was_not_saved_since(self):
        bank = self.write("two.bnk", "<Bank>\n" + "".join(
            f"""<Program name="{name}"><MidiInput><MidiEvent midiEvent="Controller Change,20"><Translation>
            <ChangeProgram type="{other}"/></Translation></MidiEvent></MidiInput></Program>\n"""
            for other, name in ((1, "First"), (0, "Second"))) + "</Bank>\n")
        orvane = self.start()
        orvane.say("load " + bank)
        self.await_program("First", 120)
        self.end(orvane)
        self.environment["DISPLAY"] = window.Display(self).name
        for number, is_older in ((1, False), (0, True)):
            orvane = self.start("--client", "Orvane")
            orvane.await_start("Closing the window")
            self.play("orvane.nTEST:Orvane In", "0:b01401")
            until(lambda: f'bank="{bank}" number="{number}"' in self.recovery(), "the program in the recovery file")
            self.assertEqual(orvane.end(signal.SIGKILL), -signal.SIGKILL)
            if is_older:
                os.utime(self.session + "/program.xml", (time.time() + 1, time.time() + 1))
            orvane = self.start("--client", "Orvane")
            orvane.await_start("Closing the window")
            self.await_program("Second", 120)
            self.end(orvane)


if __name__ == "__main__":
    unittest.main(argv=live.sys.argv[:1] + live.sys.argv[3:], verbosity=1)
