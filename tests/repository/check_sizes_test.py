#!/usr/bin/env python3
"""A file of 500 lines passes, one of 501 does not."""

import pathlib
import tempfile
import unittest

import check_sizes


class CheckSizesTest(unittest.TestCase):
    def test_only_what_exceeds_the_limit_is_an_offence(self):
        with tempfile.TemporaryDirectory() as folder:
            root = pathlib.Path(folder)
            (root / "full.cpp").write_text("int a;\n" * 500)
            (root / "over.cpp").write_text("int a;\n" * 501)
            (root / "open.cpp").write_text("int a;\n" * 500 + "int b;")
            self.assertEqual(["over.cpp: 501 lines, 500 are allowed", "open.cpp: 501 lines, 500 are allowed"],
                             list(check_sizes.offences(root, ["full.cpp", "over.cpp", "open.cpp"])))

    def test_tables_are_exempt(self):
        self.assertFalse("data/VrexObjects.def".endswith(check_sizes.SUFFIXES))


if __name__ == "__main__":
    unittest.main()
