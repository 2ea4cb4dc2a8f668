#!/usr/bin/env python3
"""Files, standard streams and pipes, and what goes wrong with them."""

import json
import os
import pathlib
import random
import resource
import signal
import stat
import subprocess
import time

import vrex_tool as tool
from vrex_tool import FINE, INVALID, IO_FAILURE, PROGRAM, USAGE


def many(count):
    """A document whose writing takes a while."""
    document = tool.Document()
    for i in range(count):
        document.point(float(i), 0.5, 0.25, label=f"point {i}")
    return document


class StandardStreams(tool.ToolTest):
    def test_every_command_reads_standard_input(self):
        text = tool.gap().text()
        file = self.write(tool.gap())
        for command in (["info", "-"], ["check", "-"], ["components", "-"], ["solve", "-"], ["convert", "-"],
                        ["diff", "-", file], ["diff", file, "-"]):
            self.expect(FINE, *command, stdin=text)
        self.assertIn("Standard input", self.report(FINE, "info", "-", stdin=text)["summary"])

    def test_commands_in_a_pipe(self):
        file = self.write(tool.gap())
        pipe = " | ".join((f"'{PROGRAM}' convert --to stream '{file}' 2>/dev/null", f"'{PROGRAM}' convert -",
                           f"'{PROGRAM}' solve --out - - 2>/dev/null", f"'{PROGRAM}' --json info -"))
        report = json.loads(subprocess.run(["bash", "-o", "pipefail", "-c", pipe], capture_output=True, check=True).stdout)
        self.assertEqual(report["degreesOfFreedom"], 8)

    def test_talk_goes_to_standard_error_and_quiet_ends_it(self):
        file = self.write(tool.gap())
        result = self.expect(FINE, "solve", "--out", self.folder / "out.json", file)
        self.assertIn(b"is solved", result.stdout)
        self.assertIn(b"out.json written", result.stderr)
        result = self.expect(FINE, "solve", "--quiet", "--out", self.folder / "out.json", file)
        self.assertEqual(result.stderr, b"")
        self.assertIn(b"is solved", result.stdout)
        self.failure(IO_FAILURE, "--quiet", "info", self.folder / "none")

    def test_full_standard_output(self):
        file = self.write(tool.gap())
        for command in (("info",), ("check",), ("components",), ("solve",), ("convert",), ("--json", "info"),
                        ("solve", "--out", "-"), ("convert", "--to", "stream")):
            with open("/dev/full", "wb") as full:
                result = subprocess.run([PROGRAM, "--quiet", *command, file], stdout=full, stderr=subprocess.PIPE)
            self.assertEqual((result.returncode, result.stderr), (
                IO_FAILURE, b"vrex: error: Standard output cannot be written: No space left on device.\n"))

    def test_reader_that_leaves(self):
        process = subprocess.Popen([PROGRAM, "convert", self.write(many(20000))], stdout=subprocess.PIPE,
                                   stderr=subprocess.PIPE)
        process.stdout.close()
        self.assertIn(b"Broken pipe", process.stderr.read())
        process.stderr.close()
        self.assertEqual(process.wait(), IO_FAILURE)

    def test_arguments_that_make_no_sense(self):
        file = self.write(tool.gap())
        for arguments in ((), ("nonsense",), ("info",), ("info", file, file), ("info", "--nonsense", file),
                          ("solve", "--tolerance", "0", file), ("solve", "--max-iterations", "-1", file),
                          ("solve", "--max-iterations", "many", file), ("convert", "--indent", "99", file),
                          ("diff", file), ("diff", "--tolerance", "-1", file, file)):
            self.failure(USAGE, *arguments)

    def test_arguments_are_named(self):
        file = self.write(tool.gap())
        for part, arguments in (('"frobnicate" is neither a command nor an option', ("frobnicate", file)),
                                ('"--frobnicate" is neither a command nor an option', ("info", "--frobnicate")),
                                ("--out: a file needs a name", ("solve", file, "--out", "")),
                                ("--loops: a file needs a name", ("import", file, "--loops", "")),
                                ("input: a file needs a name", ("info", "")), ("second: a file needs a name", ("diff", file, "")),
                                ("Only one of robot description and loop file", ("import", "--loops", "-", "-"))):
            self.assertIn(part, self.failure(USAGE, *arguments))

    def test_numbers_that_are_none(self):
        file = self.write(tool.gap())
        for number in ("nan", "inf", "1e400", "-1"):
            for command, limit in ((("solve", file), "above 0"), (("diff", file, file), "from 0 on")):
                self.assertEqual(self.failure(USAGE, *command, "--tolerance", number),
                                 f"--tolerance: {number} is no number {limit}. See vrex --help.")

    def test_standard_error_that_cannot_be_written(self):
        file = self.write(tool.gap())
        for code, arguments in ((IO_FAILURE, ("info", "none")), (USAGE, ("nonsense",)), (FINE, ("solve", "--out", "-", file)),
                                (FINE, ("convert", "--out", self.folder / "out.json", file))):
            with open("/dev/full", "wb") as full:
                result = subprocess.run([PROGRAM, *arguments], stdout=subprocess.PIPE, stderr=full)
            self.assertEqual(result.returncode, code, arguments)
            closed = subprocess.run(["bash", "-c", '"$0" "$@" 2>&-', PROGRAM, *arguments], stdout=subprocess.PIPE)
            self.assertEqual(closed.returncode, code, arguments)

    def test_failures_do_not_move_the_cursor(self):
        robot = '<robot name="r"><link name="&#x9b;2J\u202e"/><link name="&#x9b;2J\u202e"/></robot>'
        self.assertIn('link "\\u009b2J\\u202e"',
                      self.failure(INVALID, "import", "--quiet", self.write(robot.encode(), "r.urdf")))
        name = os.fsencode(self.folder) + b"/\xff\x1b.json"
        self.assertEqual(self.failure(IO_FAILURE, "info", os.fsdecode(name)),
                         f"{self.folder}/\\xff\\u001b.json cannot be read: No such file or directory.")

    def test_names_that_are_no_text_have_a_place_in_reports(self):
        name = os.fsdecode(os.fsencode(self.folder) + b"/\xff.json")
        pathlib.Path(name).write_bytes(tool.gap().text())
        self.assertIn("/\\xff.json is valid.", self.report(FINE, "check", name)["summary"])
        pathlib.Path(name).write_bytes(b"<robot name='r'><link name='a'/><wheel/></robot>")
        finding, = self.report(FINE, "import", "--lenient", name, "--out", self.folder / "out.json")["findings"]
        self.assertTrue(finding["file"].endswith("/\\xff.json"))

    def test_zero_in_a_label_does_not_end_the_sentence(self):
        document = tool.Document()
        document.point(0.0, 0.0, 0.0, label="a\0b")
        self.assertIn('Point3D "a\\u0000b" (id 1): ',
                      self.failure(INVALID, "convert", "--to", "stream", self.write(document)))

    def test_options_stand_before_and_behind_the_command(self):
        file = self.write(tool.gap())
        outputs = {self.expect(FINE, *words).stdout for words in (
            ("--json", "info", file), ("info", "--json", file), ("info", file, "--json"))}
        self.assertEqual(len(outputs), 1)


class Files(tool.ToolTest):
    def test_files_that_cannot_be_read(self):
        for name, reason in (("none.json", "No such file or directory"), ("", "Is a directory")):
            path = self.folder / name
            self.assertEqual(self.failure(IO_FAILURE, "info", path), f"{path} cannot be read: {reason}.")

    def test_files_that_cannot_be_written(self):
        file = self.write(tool.gap())
        for output, reason in ((self.folder / "none" / "out.json", "No such file or directory"),
                               (self.folder, "Is a directory"), ("/dev/full", "No space left on device")):
            for command in ("solve", "convert"):
                sentence = self.failure(IO_FAILURE, "--quiet", command, "--out", output, file)
                self.assertTrue(sentence.startswith(f"{output} cannot be written: "), sentence)
                self.assertIn(reason, sentence)
        self.assertTrue(stat.S_ISCHR(os.stat("/dev/full").st_mode))
        self.expect_files("system.json")

    def test_full_disk_leaves_the_former_file(self):
        def fill():
            signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
            resource.setrlimit(resource.RLIMIT_FSIZE, (10000, 10000))

        file, output = self.write(many(1000)), self.write(b"former", "out.json")
        sentence = self.failure(IO_FAILURE, "convert", "--out", output, file, preexec_fn=fill)
        self.assertIn("File too large", sentence)
        self.assertEqual(output.read_bytes(), b"former")
        self.expect_files("system.json", "out.json")

    def test_written_file_keeps_permissions_and_input_is_untouched(self):
        file, output = self.write(tool.gap()), self.write(b"former", "out.json")
        output.chmod(0o640)
        file.chmod(0o444)
        before = file.stat()
        self.expect(FINE, "solve", "--out", output, file)
        self.assertEqual(stat.S_IMODE(output.stat().st_mode), 0o640)
        self.assertEqual((file.read_bytes(), file.stat().st_mtime_ns), (tool.gap().text(), before.st_mtime_ns))

    def test_no_input_is_written_to(self):
        file, link, robot = self.write(tool.gap()), self.folder / "link.json", self.write(b"<robot/>", "robot.urdf")
        loops = self.write(b"closed_loop: []", "robot.yaml")
        link.symlink_to(file)
        for output, arguments in ((file, ("convert", file)), (link, ("convert", file)), (robot, ("import", robot)),
                                  (loops, ("import", robot)), (file, ("import", robot, "--loops", file))):
            before = output.read_bytes()
            self.assertIn("is the input, which is never touched", self.failure(USAGE, *arguments, "--out", output))
            self.assertEqual(output.read_bytes(), before)
        with open(file, "rb") as stdin:
            result = subprocess.run([PROGRAM, "convert", "-", "--out", file], stdin=stdin, capture_output=True)
        self.assertEqual((result.returncode, file.read_bytes()), (USAGE, tool.gap().text()))

    def test_pipe_as_output_is_written_into(self):
        pipe = self.folder / "pipe"
        os.mkfifo(pipe)
        process = subprocess.Popen([PROGRAM, "--quiet", "convert", "--out", pipe, self.write(tool.gap())])
        self.assertEqual(len(json.loads(pipe.read_bytes())["objects"]), 2)
        self.assertEqual(process.wait(), FINE)
        self.assertTrue(stat.S_ISFIFO(pipe.stat().st_mode))


class Interruption(tool.ToolTest):
    def test_write_that_is_interrupted_ends_with_a_sentence(self):
        pipe = self.folder / "pipe"
        os.mkfifo(pipe)
        file = self.write(many(20000))
        for number in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
            process = subprocess.Popen([PROGRAM, "convert", "--out", pipe, file], stderr=subprocess.PIPE)
            with open(pipe, "rb", buffering=0) as reader:
                self.assertTrue(reader.read(1))  # Now it waits for someone to read on.
                time.sleep(0.2)
                process.send_signal(number)
                sentence = process.stderr.read()
            process.stderr.close()
            self.assertEqual(process.wait(), IO_FAILURE)
            self.assertEqual(sentence.decode(),
                             f"vrex: error: {pipe} cannot be written: Interrupted system call.\n")

    def test_wait_for_a_reader_can_be_ended(self):
        pipe = self.folder / "pipe"
        os.mkfifo(pipe)
        process = subprocess.Popen([PROGRAM, "convert", "--out", pipe, self.write(tool.gap())])
        time.sleep(0.5)
        process.send_signal(signal.SIGINT)
        self.assertEqual(process.wait(timeout=120), -signal.SIGINT)

    def test_no_file_is_torn_whenever_it_ends(self):
        texts = [tool.run("convert", self.write(many(5000 + i))).stdout for i in range(2)]
        files = [self.write(text, f"{i}.json") for i, text in enumerate(texts)]
        output = self.write(texts[0], "out.json")
        random.seed(1)
        begin = time.monotonic()
        self.expect(FINE, "--quiet", "convert", "--out", output, files[1])
        duration = time.monotonic() - begin
        for i in range(20):
            process = subprocess.Popen([PROGRAM, "--quiet", "convert", "--out", output, files[i % 2]],
                                       stderr=subprocess.DEVNULL)
            time.sleep(random.uniform(0.0, 1.2 * duration))
            process.terminate()
            self.assertIn(process.wait(), (FINE, IO_FAILURE, -signal.SIGTERM))
            self.assertIn(output.read_bytes(), texts)
        self.expect_files("system.json", "0.json", "1.json", "out.json")

    def test_ignored_signals_stay_ignored(self):
        pipe = self.folder / "pipe"
        os.mkfifo(pipe)
        text = tool.run("convert", self.write(many(20000))).stdout
        process = subprocess.Popen([PROGRAM, "--quiet", "convert", "--out", pipe, self.folder / "system.json"],
                                   preexec_fn=lambda: signal.signal(signal.SIGHUP, signal.SIG_IGN))
        with open(pipe, "rb", buffering=0) as reader:
            first = reader.read(1)
            process.send_signal(signal.SIGHUP)
            self.assertEqual(first + reader.readall(), text)
        self.assertEqual(process.wait(), FINE)


if __name__ == "__main__":
    tool.main()
