#!/usr/bin/env python3
"""A file that no list names is found, and a list that names no file."""

import pathlib
import unittest

import check_registered

FILES = ["docs/sketch.cpp", "src/a/A.cpp", "src/a/A.def", "src/a/A.h", "tests/a/ATest.cpp",
         "tests/repository/install_consumer/main.cpp"]
COMPILED = {"src/a/A.cpp", "tests/a/ATest.cpp"}
LISTED = ["src/a/A.h", "src/a/A.def", "src/a/A.cpp"]


class CheckRegisteredTest(unittest.TestCase):
    def expect(self, expected, files=(), compiled=COMPILED, listed=LISTED):
        self.assertEqual(expected, list(check_registered.offences([*FILES, *files], compiled, listed)))

    def test_all_registered(self):
        self.expect([])

    def test_source_and_test_that_are_not_compiled(self):
        self.expect(["src/a/B.cpp: is not compiled; name it in the CMakeLists.txt of its folder",
                     "tests/a/BTest.cpp: is not compiled; name it in the CMakeLists.txt of its folder"],
                    files=["src/a/B.cpp", "tests/a/BTest.cpp"])

    def test_header_and_table_in_no_list(self):
        self.expect(["src/a/B.h: is in no list; name it in the CMakeLists.txt of its folder",
                     "src/a/B.def: is in no list; name it in the CMakeLists.txt of its folder"],
                    files=["src/a/B.h", "src/a/B.def"])

    def test_listed_file_that_is_not_tracked(self):
        self.expect(["src/a/C.h: is listed and not tracked"], listed=[*LISTED, "src/a/C.h"])

    def test_compiled_paths_are_relative_to_the_root(self):
        commands = [{"directory": "/r/build", "file": "/r/src/a/A.cpp"}, {"directory": "/r/build", "file": "../b.cpp"}]
        self.assertEqual({"src/a/A.cpp", "b.cpp"}, check_registered.compiled(pathlib.Path("/r"), commands))


if __name__ == "__main__":
    unittest.main()
