"""Playing from the keys of a terminal, in a JACK graph: keys.py ORVANE MIDI_PEER"""
import array
import fcntl
import os
import pty
import signal
import subprocess
import sys
import tempfile
import termios
import time
import unittest

import live
from live import Monitor, song, until


class Terminal(live.Program):
    """A program on a pseudo terminal. As its own it sends the signals of the keys; a borrowed one does not, but leaves
    the program a job of ours, which can be suspended."""

    def __init__(self, test, *command, own=True):
        try:
            self.keyboard, self.screen = pty.openpty()
        except OSError as error:
            test.skipTest(f"this machine has no terminal to give: {error}")
        self.before = self.mode()
        self.out, self.err = (tempfile.TemporaryFile() for _ in range(2))

        def enter():
            os.setsid() if own else os.setpgid(0, 0)
            if own:
                fcntl.ioctl(0, termios.TIOCSCTTY, 0)

        self.process = subprocess.Popen(command, stdin=self.screen, stdout=self.out, stderr=self.err,
                                        env=test.environment, preexec_fn=enter)
        self.process.stdin = os.fdopen(self.screen, "rb", buffering=0)  # closed with the rest
        test.addCleanup(os.close, self.keyboard)
        test.addCleanup(self.clean)

    def mode(self):
        return termios.tcgetattr(self.screen)

    @property
    def is_raw(self):
        return not self.mode()[3] & (termios.ECHO | termios.ICANON)

    def type(self, text):
        os.write(self.keyboard, text)


class Keys(live.Graph):
    def terminal(self, *arguments, own=True):
        program = Terminal(self, live.ORVANE, "run", "--keys", *arguments, own=own)
        program.await_start("Ctrl+C")
        self.assertIsNone(program.process.poll(), program.complained)
        self.assertTrue(program.is_raw)
        self.started.append(program)
        return program

    def terminal_in_graph(self, own=True):
        self.serve()
        monitor = Monitor(self)
        return self.terminal("--default-output", "2", own=own), monitor

    def expect_end(self, orvane, status=0):
        self.assertEqual(orvane.process.wait(live.PATIENCE), status, orvane.complained)
        self.assertEqual(orvane.mode(), orvane.before)

    def test_the_keys_of_a_new_user_play_once_while_they_repeat_and_come_up_by_themselves(self):
        orvane, monitor = self.terminal_in_graph()
        self.assertIn("The keys of this terminal play", orvane.printed)
        orvane.type(b"q" * 30)
        monitor.await_message("80 3c 64")
        orvane.type(b"wz ")
        monitor.await_message("b0 01 7f")
        monitor.await_message("b0 01 00")
        self.assertEqual(song(monitor.received), ["90 3c 64", "80 3c 64", "90 3e 64", "80 3e 64", "90 30 64",
                                                  "80 30 64", "b0 01 7f", "b0 01 00"])
        orvane.type(b"\x1bOQ\x1b[1;2Pi")  # F2 and Shift F1: an octave up and a semitone down
        monitor.await_message("90 53 64")
        orvane.type(b"\x03")
        self.expect_end(orvane)
        monitor.await_message("80 53")
        self.assertEqual(orvane.complaints, [])

    def test_the_terminal_is_as_it_was_after_every_end(self):
        for sent, status in ((signal.SIGTERM, 0), (signal.SIGHUP, 0), (signal.SIGQUIT, -signal.SIGQUIT),
                             (signal.SIGABRT, -signal.SIGABRT), (signal.SIGSEGV, -signal.SIGSEGV)):
            with self.subTest(signal=sent.name):
                orvane = self.terminal()
                orvane.process.send_signal(sent)
                self.expect_end(orvane, status)
        self.serve()
        hurried = self.terminal()
        self.server.process.send_signal(signal.SIGSTOP)
        hurried.process.send_signal(signal.SIGINT)
        until(lambda: not hurried.has_pending(signal.SIGINT), "the first signal to be taken")
        hurried.type(b"\x03")
        self.expect_end(hurried, 128 + signal.SIGINT)

    def test_suspending_ends_the_notes_and_restores_the_terminal(self):
        orvane, monitor = self.terminal_in_graph(own=False)
        for key, note in ((b"q", "3c"), (b"w", "3e")):
            orvane.type(key)
            monitor.await_message(f"90 {note} 64")
            orvane.process.send_signal(signal.SIGTSTP)
            self.assertTrue(os.WIFSTOPPED(os.waitpid(orvane.process.pid, os.WUNTRACED)[1]))
            monitor.await_message(f"80 {note}")
            self.assertEqual(orvane.mode(), orvane.before)
            orvane.process.send_signal(signal.SIGCONT)
            until(lambda: orvane.is_raw, "the raw terminal")

    def test_what_cannot_be_suspended_plays_on(self):
        orvane, monitor = self.terminal_in_graph()
        orvane.type(b"\x1a")
        orvane.type(b"q")
        monitor.await_message("90 3c 64")
        self.assertTrue(orvane.is_raw)

    def test_it_ends_although_nothing_reads_its_display(self):
        orvane = subprocess.Popen([live.ORVANE, "run", "--display"], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                  stderr=subprocess.DEVNULL, env=self.environment)
        self.addCleanup(lambda: (orvane.kill(), orvane.communicate()))
        waiting = array.array("i", [0])

        def fills_the_pipe():
            before = waiting[0]
            orvane.stdin.write(b"play 0 0 0 144 60 100\nplay 0 0 0 128 60 100\n" * 100)
            orvane.stdin.flush()
            time.sleep(0.5)  # several updates of the display
            fcntl.ioctl(orvane.stdout, termios.FIONREAD, waiting)
            return waiting[0] == before > 20000  # no further piece fits

        until(fills_the_pipe, "a full pipe")
        orvane.send_signal(signal.SIGINT)
        self.assertEqual(orvane.wait(live.PATIENCE), 0)


unittest.main(argv=sys.argv[:1] + sys.argv[3:], verbosity=1)
