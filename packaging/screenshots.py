#!/usr/bin/python3
"""Draws the pictures of the documentation anew: packaging/screenshots.py [ORVANE]

Opens the window of a new user on a virtual display, at first with its default screens and then with each screen alone,
at 100 and at 200 percent, while some keys are held; then the dialogs, and the settings of a key, a control, a layer and
an oscillator. Writes the pictures to docs/pictures: window.png, help.png, help@2x.png ... Look at them: on a busy
machine a picture may be taken too early."""
import glob
import os
import re
import signal
import struct
import subprocess
import sys
import tempfile
import time
import zlib

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
ORVANE = os.path.abspath(sys.argv[1]) if len(sys.argv) > 1 else ROOT + "/build/start/bin/orvane"
PICTURES = ROOT + "/docs/pictures"
TITLE = "(^| - )Orvane 3$"  # after the name of a bank

SCREENS = ["system", "help", "display", "oscillators", "joystick", "midi-input", "computer-input", "controls", "output",
           "layers", "cc", "zones"]  # in the order of the setting
BELOW_OUTPUT = ["layers", "cc", "zones"]  # shown with that screen
HELD_KEYS = [24, 26, 28]  # Q, E and T, by their positions
DIALOGS = [  # picture, title, the screen with its button, the position of the button, the keys that choose from its menu
    ("setup-dialog", "Setup", "system", (922, 146), []),  # its page of the record
    ("save-dialog", "Save", "system", (822, 146), ["Down", "Down", "Return"]),
    ("set-list-dialog", "Set List", "system", (822, 146), ["Up", "Return"]),
    ("bank-size-dialog", "Change Bank Size", "system", (822, 146), ["Down", "Down", "Down", "Return"]),
    ("presets-dialog", "Presets", "computer-input", (433, 74), ["Down", "Down", "Return"]),
]
SET_LIST = [(0, ""), (7, "D drone, no drums"), (2, "strings from bar 9"), (9, "play soft"), (5, "wait for drums"),
            (1, "capo 2"), (6, "")]
SEQUENCE = """<ProgramFile><Program name="Sequence">
    <ComputerInput><Key id="Q"><Function><Down><MidiNoteOn note="C4"/></Down><Up><MidiNoteOff note="C4"/></Up>
    </Function></Key></ComputerInput>
    <Layers><Layer><Arpeggio><UpArpeggio beat="480" length="240"/></Arpeggio>
    <SequenceSetting><Sequence>0,0|7 V20,-,12,10 V-30,7|12,-,5</Sequence></SequenceSetting></Layer></Layers>
    </Program></ProgramFile>"""
JOYSTICK_PRESET = ROOT + "/content/Default/Joystick Presets/001 - Bend and Modulation.pst"
OSCILLATORS = """<ProgramFile><Program name="Sweeps">
    <ComputerInput><Key id="Q"><Function><Down><ChangeOscPlaying type="all" value="on"/></Down></Function></Key>
    </ComputerInput><Oscillators>
    <Oscillator type="sin" speed="1920" detail="1" midiMessage="Controller Change,74"/>
    <Oscillator type="tri" speed="160" min="4096" max="12288" midiMessage="Pitch Bend"/>
    <Oscillator type="random" speed="480" midiMessage="Controller Change,10"/>
    <Oscillator type="saw" speed="1000" speedMode="ppq" min="127" max="40" midiMessage="Controller Change,7"/>
    </Oscillators><Layers><Layer/></Layers></Program></ProgramFile>"""
FIRST_OSCILLATOR = (33, 111)  # its number on the oscillator screen
FIRST_LAYER = (480, 201)  # its bar on the layer screen
EDITED_KEY = (97, 196)  # Q on the keys screen
EDITED_CONTROL = (100, 130)  # MW on the control screen
THREE_BUTTONS = 300  # a window with a screen is wider
SERVER = "orvane-screenshots"  # a JACK server of its own, so that there is sound
PATIENCE = 30


def until(condition, what):
    limit = time.monotonic() + PATIENCE
    while not condition():
        if time.monotonic() > limit:
            sys.exit("timed out waiting for " + what)
        time.sleep(0.05)


def run(*command, **more):
    return subprocess.run(command, capture_output=True, text=True, **more).stdout


class Display:
    """A virtual display whose content is a file in the format of xwd."""

    def __init__(self, folder):
        self.process = subprocess.Popen(["Xvfb", "-displayfd", "1", "-screen", "0", "3200x3200x24", "-nolisten", "tcp",
                                         "-noreset", "-fbdir", folder], stdout=subprocess.PIPE,
                                        stderr=subprocess.DEVNULL, text=True)
        self.name = ":" + self.process.stdout.readline().strip()
        self.file = folder + "/Xvfb_screen0"

    def end(self):
        self.process.terminate()
        self.process.wait()

    def lines(self, left, top, width, height):
        """Rows of red, green and blue."""
        with open(self.file, "rb") as file:
            data = file.read()
        header = struct.unpack(">25I", data[:100])
        start, row, colours = header[0], header[12], header[19]
        for line in range(top, top + height):
            begin = start + 12 * colours + line * row + left * 4
            pixels = data[begin:begin + width * 4]
            rgb = bytearray(width * 3)
            rgb[0::3], rgb[1::3], rgb[2::3] = pixels[2::4], pixels[1::4], pixels[0::4]
            yield bytes(rgb)


def png(lines, width, height):
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)) +
            chunk(b"IDAT", zlib.compress(b"".join(b"\0" + line for line in lines), 9)) + chunk(b"IEND", b""))


class Server:
    """Without a sound card."""

    def __init__(self):
        environment = {**os.environ, "JACK_DEFAULT_SERVER": SERVER}
        self.process = subprocess.Popen(["jackd", "-r", "-n", SERVER, "-d", "dummy", "-r", "48000", "-p", "256"],
                                        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        run("jack_wait", "-w", "-t", "10", env=environment)

    def end(self):
        self.process.terminate()
        self.process.wait()


class NewUser:
    def __init__(self, folder, display):
        os.makedirs(folder + "/runtime", 0o700)
        self.folder = folder
        self.environment = {**os.environ, "DISPLAY": display.name, "QT_QPA_PLATFORM": "xcb",
                            "JACK_NO_START_SERVER": "1", "JACK_DEFAULT_SERVER": SERVER,
                            "XDG_CONFIG_HOME": folder + "/config", "XDG_DATA_HOME": folder + "/data",
                            "XDG_RUNTIME_DIR": folder + "/runtime"}

    def tool(self, *command):
        return run(*command, env=self.environment)

    def window(self, title=TITLE):
        return self.tool("xdotool", "search", "--onlyvisible", "--name", title).strip()

    def hasFocus(self):
        return self.window() and re.search(TITLE, self.tool("xdotool", "getwindowfocus", "getwindowname").strip())

    def geometry(self, title=TITLE):
        text = self.tool("xdotool", "getwindowgeometry", "--shell", self.window(title))
        return [int(re.search(name + r"=(-?\d+)", text).group(1)) for name in ("X", "Y", "WIDTH", "HEIGHT")]

    def open(self, scale, heldKeys=(), arguments=()):
        self.orvane = subprocess.Popen([ORVANE, *arguments], env={**self.environment, "QT_SCALE_FACTOR": str(scale)},
                                       cwd=self.folder, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        until(self.hasFocus, "the window")
        time.sleep(1)
        for key in heldKeys:
            self.tool("xdotool", "keydown", str(key))
        time.sleep(3)  # until everything is drawn, and what the status line says for three seconds is gone

    def click(self, place, scale, button="1"):
        left, top, _, _ = self.geometry()
        self.tool("xdotool", "mousemove", str(left + place[0] * scale), str(top + place[1] * scale), "click", button)
        time.sleep(1)  # until the menu is shown, or the settings are

    def openDialog(self, title, place, scale, keys):
        self.click(place, scale)
        for key in keys:
            self.tool("xdotool", "key", key)
        until(lambda: self.window(f"^{title}$"), "the dialog " + title)
        self.tool("xdotool", "mousemove", "3199", "3199")
        time.sleep(1)

    def writeSetList(self):
        (bank,) = glob.glob(self.folder + "/data/**/Default Bank.bnk", recursive=True)
        with open(bank) as file:
            names = re.findall('<Program name="([^"]*)"', file.read())
        entries = [f'<Entry number="{number}" name="{names[number]}" note="{note}"/>' for number, note in SET_LIST]
        with open(bank[:-4] + ".set", "w") as file:
            file.write(f'<SetList on="true" position="0">{"".join(entries)}</SetList>')

    def close(self, heldKeys=()):
        for key in heldKeys:
            self.tool("xdotool", "keyup", str(key))
        self.orvane.send_signal(signal.SIGTERM)
        self.orvane.wait(PATIENCE)

    def showOnly(self, screen):
        """To be called after a window was open. A screen that does not exist leaves the three buttons."""
        (path,) = glob.glob(self.folder + "/config/**/3.2", recursive=True)
        shown = [screen, "output"] if screen in BELOW_OUTPUT else [screen]
        state = "".join("Y" if each in shown else "N" for each in SCREENS)
        with open(path) as file:
            text = re.sub("ScreenState=.*", "ScreenState=string:" + state, file.read())
        with open(path, "w") as file:
            file.write(text)


def takePicture(user, display, name, title=TITLE):
    left, top, width, height = user.geometry(title)
    if title == TITLE and width <= THREE_BUTTONS:
        print("there is no screen", name)
        return False
    with open(f"{PICTURES}/{name}.png", "wb") as file:
        file.write(png(display.lines(left, top, width, height), width, height))
    return True


def suffix(scale):
    return "@2x" if scale == 2 else ""


def writeJoystickProgram(path):
    with open(JOYSTICK_PRESET) as file:
        section = file.read().split("?>", 1)[1]
    with open(path, "w") as file:
        file.write(f'<ProgramFile><Program name="Joystick">{section}</Program></ProgramFile>')
    return path


def takeScreens(user, display):
    for screen in [None, *SCREENS]:
        for scale in (1, 2):
            if screen:
                user.showOnly(screen)
            bound = [writeJoystickProgram(user.folder + "/joystick.prg")] if screen == "joystick" else []
            user.open(scale, HELD_KEYS, bound)
            there = takePicture(user, display, (screen or "window") + suffix(scale))
            user.close(HELD_KEYS)
            if not there:
                break


def takeEditing(user, display):
    """What a key does, beneath the board, and the settings of a control."""
    for screen, place in (("computer-input", EDITED_KEY), ("controls", EDITED_CONTROL)):
        for scale in (1, 2):
            user.showOnly(screen)
            user.open(scale)
            user.click(place, scale, "3")
            user.tool("xdotool", "mousemove", "3199", "3199")
            time.sleep(0.5)
            takePicture(user, display, screen + "-edit" + suffix(scale))
            user.close()


def takeDialogs(user, display):
    for name, title, screen, place, keys in DIALOGS:
        for scale in (1, 2):
            user.showOnly(screen)
            if name == "set-list-dialog":
                user.writeSetList()
            user.open(scale)
            user.openDialog(title, place, scale, keys)
            if name == "setup-dialog":
                user.tool("xdotool", "key", *["Down"] * 6)
                time.sleep(0.5)
            takePicture(user, display, name + suffix(scale), f"^{title}$")
            user.close()


def takeSequence(user, display):
    program = user.folder + "/sequence.prg"
    with open(program, "w") as file:
        file.write(SEQUENCE)
    for scale in (1, 2):
        user.showOnly("layers")
        user.open(scale, HELD_KEYS[:1], [program])
        left, top, _, height = user.geometry()
        user.tool("xdotool", "mousemove", str(left + FIRST_LAYER[0] * scale), str(top + FIRST_LAYER[1] * scale),
                  "click", "3")
        until(lambda: user.geometry()[3] > height, "the settings")
        user.tool("xdotool", "mousemove", "3199", "3199")
        time.sleep(1)
        takePicture(user, display, "sequence" + suffix(scale))
        user.close(HELD_KEYS[:1])


def takeOscillators(user, display):
    program = user.folder + "/oscillators.prg"
    with open(program, "w") as file:
        file.write(OSCILLATORS)
    for scale in (1, 2):
        user.showOnly("oscillators")
        user.open(scale, HELD_KEYS[:1], [program])
        takePicture(user, display, "oscillators" + suffix(scale))
        user.click(FIRST_OSCILLATOR, scale, "3")
        user.tool("xdotool", "mousemove", "3199", "3199")
        time.sleep(0.5)
        takePicture(user, display, "oscillators-edit" + suffix(scale))
        user.close(HELD_KEYS[:1])


def main():
    os.makedirs(PICTURES, exist_ok=True)
    with tempfile.TemporaryDirectory() as folder:
        display = Display(folder)
        server = Server()
        try:
            user = NewUser(folder + "/home", display)
            takeScreens(user, display)
            takeEditing(user, display)
            takeDialogs(user, display)
            takeSequence(user, display)
            takeOscillators(user, display)
        finally:
            server.end()
            display.end()


if __name__ == "__main__":
    main()
