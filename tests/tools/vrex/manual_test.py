#!/usr/bin/env python3
"""Manual page, completion and --help tell of the same commands, options and exit codes."""

import re
import shutil
import subprocess
import unittest

import vrex_tool as tool
from vrex_tool import FINE, SOURCES

COMMANDS = ("check", "info", "components", "solve", "convert", "import", "diff")
MANUAL = SOURCES / "tools" / "vrex" / "share" / "vrex.1"
COMPLETION = SOURCES / "tools" / "vrex" / "share" / "vrex.bash"


def options_of(*command):
    """The long ones that --help tells."""
    return set(re.findall(r"^  (?:-\w,)?(--[\w-]+)", tool.run(*command, "--help").stdout.decode(), re.M))


def complete(*words):
    """What bash would offer for the last of the words."""
    script = f"source '{COMPLETION}'; COMP_WORDS=(\"$@\"); COMP_CWORD=$(($# - 1)); _vrex; printf '%s\\n' \"${{COMPREPLY[@]}}\""
    result = subprocess.run(["bash", "-c", script, "bash", "vrex", *words], capture_output=True, text=True, check=True)
    return set(result.stdout.split())


class Manual(tool.ToolTest):
    def text(self):
        return MANUAL.read_text().replace("\\-", "-").replace("\\fB", "").replace("\\fR", "").replace("\\fI", "")

    def test_commands_and_options_are_there(self):
        for command in COMMANDS:
            self.assertRegex(self.text(), rf"(?m)^{command} ")
            self.assertIn(command, self.expect(FINE, "--help").stdout.decode())
        for option in options_of().union(*(options_of(command) for command in COMMANDS)):
            self.assertIn(option, self.text())

    def test_exit_codes_are_those_of_the_source(self):
        source = (SOURCES / "tools" / "vrex" / "VrexExitCode.h").read_text()
        codes = {int(code) for code in re.findall(r"= (\d+)", source)}
        table = {int(code) for code in re.findall(r"(?m)^(\d);", self.text())}
        self.assertEqual(table, codes)
        self.assertEqual({int(code) for code in re.findall(r"(\d) [a-z]", tool.run("--help").stdout.decode())}, codes)

    @unittest.skipUnless(shutil.which("groff"), "no groff")
    def test_page_is_well_formed(self):
        result = subprocess.run(["groff", "-t", "-man", "-Tutf8", "-ww", "-z", MANUAL], capture_output=True, text=True)
        self.assertEqual((result.returncode, result.stderr), (0, ""))

    def test_version(self):
        self.assertRegex(self.expect(FINE, "--version").stdout.decode(), r"^vrex \d+\.\d+\.\d+\n$")


class Completion(tool.ToolTest):
    def test_commands(self):
        self.assertEqual(complete(""), set(COMMANDS))
        self.assertEqual(complete("--json", "co"), {"components", "convert"})

    def test_options(self):
        self.assertEqual(complete("-"), options_of())
        for command in COMMANDS:
            self.assertEqual(complete(command, "--"), options_of(command) | {"--json", "--quiet"}, command)

    def test_values_and_files(self):
        self.assertEqual(complete("convert", "--to", ""), {"document", "stream"})
        self.write(tool.gap(), "a.json")
        self.assertEqual(complete("info", f"{self.folder}/"), {f"{self.folder}/a.json"})
        self.assertEqual(complete("solve", "--out", f"{self.folder}/a"), {f"{self.folder}/a.json"})
        self.assertEqual(complete("solve", "--tolerance", ""), set())


if __name__ == "__main__":
    tool.main()
