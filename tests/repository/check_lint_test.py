#!/usr/bin/env python3
"""Offences are found in grouped sources and in headers, and what passed is remembered until it changes."""

import os
import pathlib
import shutil
import tempfile
import unittest
import unittest.mock

import check_lint
import repository

TOOL = os.environ.get("VREX_CLANG_TIDY", "clang-tidy")
GOOD = "int good(int a);\nint good(int a) { return a; }\n"
DEEP = "int deep(int a) {\n    if (a) { if (a > 1) { if (a > 2) { if (a > 3) { return 1; } } } }\n    return 0;\n}\n"
HELPER = "namespace {\nint helper() { return 1; }\n} // namespace\nint NAME() { return helper(); }\n"


class CheckLintTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)
        (self.root / "src/data").mkdir(parents=True)
        shutil.copy(repository.ROOT / ".clang-tidy", self.root)

    def lint(self, files):
        """The offences of all files, and how often clang-tidy ran."""
        for name, text in files.items():
            (self.root / "src/data" / name).write_text(text)
        command = f"c++ -I{self.root}/src -O3 -fno-such-flag -Wsuggest-final-types -std=c++20 -o x -c"
        commands = [{"directory": str(self.root), "command": f"{command} {name}", "file": f"src/data/{name}"}
                    for name in files if name.endswith(".cpp")]
        lint = check_lint.Lint(TOOL, self.root, self.root / "build/lint")
        with unittest.mock.patch.object(lint, "_tidy", wraps=lint._tidy) as tidy:
            texts = [text for group in check_lint.groups(self.root, commands) for text in lint.run(group)]
        return [piece for text in texts for piece in check_lint.complaints(self.root, text)], tidy.call_count

    def test_good_sources_are_linted_together_and_once(self):
        files = {"A.cpp": GOOD, "B.cpp": GOOD.replace("good", "better")}
        self.assertEqual(([], 1), self.lint(files))
        self.assertEqual(([], 0), self.lint(files))

    def test_offence_in_one_source_of_a_group(self):
        found, _ = self.lint({"A.cpp": GOOD, "B.cpp": DEEP})
        self.assertEqual(1, len(found), found)
        self.assertIn("src/data/B.cpp:1:5: error: function 'deep' exceeds recommended size", found[0])

    def test_offence_is_not_remembered(self):
        files = {"A.cpp": DEEP}
        self.assertEqual(self.lint(files), self.lint(files))

    def test_offence_in_a_header(self):
        found, _ = self.lint({"A.cpp": '#include "data/A.h"\n', "A.h": "#pragma once\ninline " + DEEP})
        self.assertIn("src/data/A.h:2:12: error: function 'deep'", found[0])

    def test_change_of_a_header_is_linted_again(self):
        files = {"A.cpp": '#include "data/A.h"\n', "A.h": "#pragma once\n"}
        self.assertEqual(([], 1), self.lint(files))
        found, runs = self.lint({**files, "A.h": "#pragma once\ninline " + DEEP})
        self.assertEqual((1, 1), (len(found), runs))

    def test_change_of_the_configuration_is_linted_again(self):
        self.lint({"A.cpp": GOOD})
        with open(self.root / ".clang-tidy", "a") as config:
            config.write("# changed\n")
        self.assertEqual(([], 1), self.lint({"A.cpp": GOOD}))

    def test_sources_that_do_not_stand_together_are_parted(self):
        files = {"A.cpp": HELPER.replace("NAME", "first"), "B.cpp": HELPER.replace("NAME", "second")}
        self.assertEqual(([], 3), self.lint(files))

    def test_source_that_does_not_compile(self):
        found, _ = self.lint({"A.cpp": '#include "data/Missing.h"\n'})
        self.assertIn("file not found", found[0])


if __name__ == "__main__":
    unittest.main()
