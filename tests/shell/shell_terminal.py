"""A terminal for programs that fill the screen: a pty, and what they have drawn on it."""
import fcntl
import os
import select
import signal
import struct
import subprocess
import termios
import time

import pyte

# A terminal whose sequences the emulator knows.
TERM = "screen-256color"
PATIENCE = 60  # seconds, for machines with much to do

KEYS = {"up": "\x1bOA", "down": "\x1bOB", "right": "\x1bOC", "left": "\x1bOD", "home": "\x1b[1~",
        "end": "\x1b[4~", "page up": "\x1b[5~", "page down": "\x1b[6~", "enter": "\r", "escape": "\x1b",
        "tab": "\t", "backspace": "\x7f", "ctrl-u": "\x15", "ctrl-z": "\x1a", "ctrl-c": "\x03"}


class Terminal:
    """Runs the command until it ends or until `end`."""

    def __init__(self, command, lines=24, columns=80, environment=None, stderr=None):
        self.screen = pyte.Screen(columns, lines)
        self.stream = pyte.ByteStream(self.screen)
        self.output = b""
        self.master, self.slave = os.openpty()
        self._set_size(lines, columns)
        self.modes_before = termios.tcgetattr(self.slave)
        self.process = subprocess.Popen(
            command, stdin=self.slave, stdout=self.slave, stderr=self.slave if stderr is None else stderr,
            env={**(os.environ if environment is None else environment), "TERM": TERM},
            start_new_session=True, preexec_fn=self._take_terminal)

    @staticmethod
    def _take_terminal():
        """In the program before it begins. Tests that run in the background of a shell have these signals
        ignored, and programs inherit that."""
        for number in (signal.SIGINT, signal.SIGQUIT):
            signal.signal(number, signal.SIG_DFL)
        fcntl.ioctl(0, termios.TIOCSCTTY, 0)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.end()

    def _set_size(self, lines, columns):
        fcntl.ioctl(self.master, termios.TIOCSWINSZ, struct.pack("HHHH", lines, columns, 0, 0))

    def resize(self, lines, columns):
        """What a window does to the program in it."""
        self.screen.resize(lines, columns)
        self._set_size(lines, columns)

    def type(self, text):
        os.write(self.master, text.encode())

    def press(self, *keys):
        for key in keys:
            self.type(KEYS[key])

    def _read(self, seconds):
        """Takes what the program has written; False when nothing came."""
        if not select.select([self.master], [], [], seconds)[0]:
            return False
        self._feed()
        return True

    def _feed(self):
        data = os.read(self.master, 65536)
        self.output += data
        self.stream.feed(data)

    def lines(self):
        """The screen, without blanks at the ends of lines."""
        return [line.rstrip() for line in self.screen.display]

    def text(self):
        return "\n".join(self.lines())

    def wait(self, ready, what=""):
        """Until `ready()` is true of the screen; a text is to stand on it."""
        test = (lambda: ready in self.text()) if isinstance(ready, str) else ready
        patience = time.monotonic() + PATIENCE
        while not test():
            if time.monotonic() > patience or (self.process.poll() is not None and not self._read(0)):
                raise AssertionError(f"waiting for {what or ready!r}, the screen shows:\n{self.text()}")
            self._read(0.1)
        # What is drawn below comes in the same breath.
        while self._read(0.05):
            pass

    def wait_for_end(self):
        """The exit code, or the negative number of the signal."""
        patience = time.monotonic() + PATIENCE
        while self.process.poll() is None:
            if time.monotonic() > patience:
                raise AssertionError(f"still running, the screen shows:\n{self.text()}")
            self._read(0.05)
        while self._read(0):
            pass
        return self.process.returncode

    def signal(self, number):
        self.process.send_signal(number)

    def modes(self):
        return termios.tcgetattr(self.slave)

    def end(self):
        if self.process.poll() is None:
            self.process.send_signal(signal.SIGKILL)
            self.process.wait()
        os.close(self.master)
        os.close(self.slave)
