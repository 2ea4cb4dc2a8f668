#!/usr/bin/env python3
"""A badly laid out file is found by its line; a well laid out one, and a macro without semicolon, pass."""

import os
import pathlib
import shutil
import tempfile
import unittest

import check_format
import repository

TOOL = os.environ.get("VREX_CLANG_FORMAT", "clang-format")


def offences(files):
    with tempfile.TemporaryDirectory() as folder:
        root = pathlib.Path(folder)
        shutil.copy(repository.ROOT / ".clang-format", root)
        for name, text in files.items():
            (root / name).write_text(text)
        return check_format.offences(TOOL, root, list(files))


class CheckFormatTest(unittest.TestCase):
    def test_good_layout(self):
        self.assertEqual([], offences({"a.cpp": "VREX_OBJECT_BODY(VrexPoint3D)\nint f() { return 1; }\n"}))

    def test_bad_layout_in_each_kind_of_file(self):
        self.assertEqual(["a.h:1", "b.cpp:2", "c.def:1"],
                         offences({"a.h": "int*  a;\n", "b.cpp": "int a;\nint  *b;\n", "c.def": "ROW( A )\n"}))

    def test_unsorted_includes(self):
        self.assertEqual(["a.cpp:1"], offences({"a.cpp": "#include <vector>\n#include <string>\n"}))


if __name__ == "__main__":
    unittest.main()
