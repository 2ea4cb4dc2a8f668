#!/usr/bin/env python3
"""Each kind of leftover is found, and nothing else is."""

import pathlib
import tempfile
import unittest

import check_words

ROWS = [
    ("// TO" + "DO: later\n", ["a.cpp:1: TO" + "DO is left in"]),
    ("int a;\n# FIX" + "ME\n", ["a.cpp:2: FIX" + "ME is left in"]),
    ("// XX" + "X\n", ["a.cpp:1: XX" + "X is left in"]),
    ("<<<<<<< HEAD\n", ["a.cpp:1: merge conflict is left in"]),
    ("=======\n", ["a.cpp:1: merge conflict is left in"]),
    (">>>>>>> branch\n", ["a.cpp:1: merge conflict is left in"]),
    ("int a; \n", ["a.cpp:1: trailing blanks"]),
    ("int a;", ["a.cpp: does not end with a line break"]),
    ("", []),
    ("TYPES, VrexXxx, method, ======== eight\n", []),
]


class CheckWordsTest(unittest.TestCase):
    def test_rows(self):
        for text, expected in ROWS:
            with self.subTest(text=text), tempfile.TemporaryDirectory() as folder:
                (pathlib.Path(folder) / "a.cpp").write_text(text)
                self.assertEqual(expected, list(check_words.offences(pathlib.Path(folder), ["a.cpp"])))

    def test_files_compared_byte_by_byte_are_left_alone(self):
        with tempfile.TemporaryDirectory() as folder:
            (pathlib.Path(folder) / "tests/golden").mkdir(parents=True)
            (pathlib.Path(folder) / "tests/golden/a.json").write_text("{} ")
            self.assertEqual([], list(check_words.offences(pathlib.Path(folder), ["tests/golden/a.json"])))


if __name__ == "__main__":
    unittest.main()
