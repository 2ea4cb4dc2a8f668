#!/usr/bin/env python3
"""Colour and progress: on terminals, and nowhere else."""

import os
import pty
import subprocess
import time

import vrex_tool as tool
from vrex_tool import FINE, INVALID, PROGRAM, USAGE

ESCAPE = b"\x1b["
GREEN, RED = b"\x1b[32m", b"\x1b[31m"
# Progress shows after that many seconds.
PATIENCE = 0.5
# So long that it would show.
LONG = 1.5


def drain(descriptor):
    """All that is left on a terminal whose other end is closed."""
    found = b""
    try:
        while piece := os.read(descriptor, 65536):
            found += piece
    except OSError:  # So the kernel says that the other end is closed.
        pass
    os.close(descriptor)
    return found


class Terminal(tool.ToolTest):
    def on_terminal(self, *arguments, streams=("stdout", "stderr"), delay=0.0, stdin=None, **environment):
        """Exit code, and what shows on a terminal that has these streams."""
        controller, terminal = pty.openpty()
        inherited = {name: value for name, value in os.environ.items() if name != "NO_COLOR"}
        others = {name: subprocess.DEVNULL for name in ("stdout", "stderr")} | dict.fromkeys(streams, terminal)
        process = subprocess.Popen([PROGRAM, *map(str, arguments)], stdin=subprocess.PIPE, **others,
                                   env=inherited | environment)
        os.close(terminal)
        time.sleep(delay)
        process.communicate(stdin)
        return process.returncode, drain(controller)

    def test_colour_on_a_terminal(self):
        file = self.write(tool.gap())
        code, shown = self.on_terminal("check", file)
        self.assertEqual(code, FINE)
        self.assertIn(GREEN, shown)
        document = tool.gap()
        document.bind("Angle3D", [0, 1], value=1.0)
        code, shown = self.on_terminal("check", self.write(document))
        self.assertEqual(code, INVALID)
        self.assertIn(RED, shown)
        self.assertIn(RED, self.on_terminal("check", "nothing.json", streams=("stderr",))[1])

    def test_no_colour_with_no_color(self):
        file = self.write(tool.gap())
        for value in ("1", ""):
            shown = self.on_terminal("check", file, NO_COLOR=value)[1]
            self.assertIn(b"is valid", shown)
            self.assertNotIn(ESCAPE, shown)
            self.assertNotIn(ESCAPE, self.on_terminal("check", "nothing.json", NO_COLOR=value)[1])

    def test_no_colour_elsewhere(self):
        for arguments in (("check", self.write(tool.gap())), ("check", "nothing.json"), ("--help",)):
            result = tool.run(*arguments)
            self.assertNotIn(ESCAPE, result.stdout + result.stderr)
        # A terminal for talk is none for results.
        controller, terminal = pty.openpty()
        result = subprocess.run([PROGRAM, "check", self.folder / "system.json"], stdout=subprocess.PIPE, stderr=terminal)
        os.close(terminal)
        self.assertNotIn(ESCAPE, result.stdout)
        drain(controller)

    def test_json_has_no_colour(self):
        self.assertNotIn(ESCAPE, self.on_terminal("--json", "check", self.write(tool.gap()), streams=("stdout",))[1])

    def test_progress_while_it_waits(self):
        """It waits until it is told to go on, and that is when progress has been seen."""
        controller, terminal = pty.openpty()
        process = subprocess.Popen([PROGRAM, "info", "-"], stdin=subprocess.PIPE, stdout=subprocess.DEVNULL, stderr=terminal)
        os.close(terminal)
        shown = os.read(controller, 65536)
        process.communicate(tool.gap().text())
        shown += drain(controller)
        self.assertEqual(process.returncode, FINE)
        self.assertIn(b"loading Standard input", shown)
        self.assertTrue(shown.endswith(b"\r\x1b[K"), shown)

    def test_no_progress_for_what_is_quick(self):
        text = tool.gap().text()
        for _ in range(20):
            begin = time.monotonic()
            shown = self.on_terminal("info", "-", streams=("stderr",), stdin=text)
            if time.monotonic() - begin < PATIENCE:
                self.assertEqual(shown, (FINE, b""))
                return
        self.skipTest("nothing is quick on this machine")

    def test_no_progress_for_what_is_quiet_or_elsewhere(self):
        text = tool.gap().text()
        self.assertEqual(self.on_terminal("--quiet", "info", "-", streams=("stderr",), delay=LONG, stdin=text),
                         (FINE, b""))
        process = subprocess.Popen([PROGRAM, "info", "-"], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                   stderr=subprocess.PIPE)
        time.sleep(LONG)
        self.assertEqual(process.communicate(text)[1], b"")

    def test_streams_are_not_for_terminals(self):
        code, shown = self.on_terminal("convert", "--to", "stream", self.write(tool.gap()))
        self.assertEqual(code, USAGE)
        self.assertIn(b"nothing for a terminal", shown)


if __name__ == "__main__":
    tool.main()
