"""A program on a terminal of its own, as a person has it."""
import os
import pty
import select
import signal
import termios
import time

PATIENCE = 60


class Terminal:
    def __init__(self, command, environment):
        self.shown = ""
        self.pid, self.master = pty.fork()
        if self.pid == 0:
            # Tests that run in the background of a shell have it ignored, and programs inherit that.
            signal.signal(signal.SIGINT, signal.SIG_DFL)
            os.execvpe(command[0], command, environment)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        os.close(self.master)
        if self.pid:
            os.kill(self.pid, signal.SIGKILL)
            os.waitpid(self.pid, 0)

    def _read(self):
        """What was shown since; False at the end of the program."""
        ready, _, _ = select.select([self.master], [], [], PATIENCE)
        if not ready:
            raise AssertionError(f"the program is silent behind {self.shown!r}")
        try:
            text = os.read(self.master, 65536)
        except OSError:  # the other end is closed
            return False
        self.shown += text.decode("utf-8", "replace")
        return bool(text)

    def until(self, text):
        while text not in self.shown:
            if not self._read():
                raise AssertionError(f"the program ended without {text!r}: {self.shown!r}")
        return self.shown

    def type(self, text):
        os.write(self.master, text.encode())

    def echoes(self):
        return bool(termios.tcgetattr(self.master)[3] & termios.ECHO)

    def without_echo(self):
        """Waits until what is typed is not shown."""
        end = time.monotonic() + PATIENCE
        while self.echoes():
            if time.monotonic() > end:
                raise AssertionError("what is typed is shown")
            time.sleep(0.01)

    def end(self):
        """The exit code, when everything was read."""
        while self._read():
            pass
        _, status = os.waitpid(self.pid, 0)
        self.pid = 0
        return os.waitstatus_to_exitcode(status)
