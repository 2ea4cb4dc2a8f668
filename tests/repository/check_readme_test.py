#!/usr/bin/env python3
"""A line of the README that the example lacks, or has in another order, is found; so is another screen."""

import unittest

import check_readme

EXAMPLE = "int main() {\n    first();\n\n    second();\n}\n"


class CheckReadmeTest(unittest.TestCase):
    def test_same_lines_pass(self):
        self.assertEqual((4, []), check_readme.offences("text\n```cpp\nfirst();\n\nsecond();\n```\n", EXAMPLE))

    def test_other_line_is_found(self):
        self.assertEqual(["third();"], check_readme.offences("```cpp\nfirst();\nthird();\n```\n", EXAMPLE)[1])

    def test_other_order_is_found(self):
        self.assertEqual(["first();"], check_readme.offences("```cpp\nsecond();\nfirst();\n```\n", EXAMPLE)[1])

    def test_no_code_is_nothing_seen(self):
        self.assertEqual((0, []), check_readme.offences("text\n", EXAMPLE))

    def test_screen_is_shown_whole(self):
        self.assertTrue(check_readme.is_screen_shown("a\n```text\none\ntwo\n```\n", "one\ntwo\n"))
        self.assertFalse(check_readme.is_screen_shown("a\n```text\none\n```\n", "one\ntwo\n"))


if __name__ == "__main__":
    unittest.main()
