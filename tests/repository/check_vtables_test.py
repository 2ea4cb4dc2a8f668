#!/usr/bin/env python3
"""Each kind of difference between a made-up header and a table is found, by the real compiler."""

import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

import check_vtables

COMPILER = os.environ.get("VREX_CXX", "g++")
HEADER = """
#pragma once
struct Text;
struct Root {
    virtual Text* copy() = 0;
    virtual void accept(int);
    virtual ~Root();
protected:
    virtual void update(const Root&);
private:
    virtual void restore(const Root&) = 0;
};
struct Other { virtual int other() const = 0; };
struct Leaf final : Root, Other {
    Text* copy() override;
    int other() const override;
    void restore(const Root&) override;
};
template <class T> struct Store {
    virtual ~Store() = default;
    virtual void clear() {}
    virtual T* find(int) { return nullptr; }
};
struct Plain {};
"""
ROOT = """abstract class Root in header.h
    pure Text* copy()
    accept
    ~
    update
    pure void restore(const Root&)
"""
REST = """
abstract class Other in header.h
    pure int other() const
class Leaf in header.h continues Root
    other
class Store<Plain> in header.h
    ~
    clear
    find
"""


def differences(table, header=HEADER):
    with tempfile.TemporaryDirectory() as folder:
        (pathlib.Path(folder) / "header.h").write_text(header)
        classes = check_vtables.read_table(table)
        text = check_vtables.translation_unit(classes)
        dump, error = check_vtables.compile_and_dump([COMPILER], ["-std=c++20", f"-I{folder}"], text)
        return [error] if error else list(check_vtables.compare(classes, check_vtables.read_dump(dump)))


class CheckVtablesTest(unittest.TestCase):
    def expect(self, text, table, header=HEADER):
        found = differences(table, header)
        self.assertEqual(1, len(found), found)
        self.assertIn(text, found[0])

    def test_right_table(self):
        self.assertEqual([], differences(ROOT + REST))

    def test_operations_that_changed_places(self):
        self.expect("Root: slot 2 holds accept, listed is ~", ROOT.replace("    accept\n    ~\n", "    ~\n    accept\n"))

    def test_pure_operation_at_another_place(self):
        moved = HEADER.replace("    virtual Text* copy() = 0;\n    virtual void accept(int);\n",
                               "    virtual void accept(int);\n    virtual Text* copy() = 0;\n")
        self.expect("Root: slot 1 holds accept, listed is copy", ROOT, moved)

    def test_operation_that_the_table_lacks(self):
        self.expect("Store<Plain>: slot 3 holds find, listed is nothing",
                    (ROOT + REST).replace("    find\n", ""))

    def test_operation_that_the_class_lacks(self):
        self.expect("Root: slot 4 holds update, listed is erase", ROOT.replace("    update", "    erase\n    update"))

    def test_operation_at_the_end_that_the_class_lacks(self):
        self.expect("Store<Plain>: slot 4 holds nothing, listed is erase", ROOT + REST + "    erase\n")

    def test_destructor_that_is_not_virtual(self):
        self.expect("Store<Plain>: slot 1 holds clear, listed is ~", ROOT + REST,
                    HEADER.replace("virtual ~Store()", "~Store()"))

    def test_pure_operation_with_another_signature(self):
        self.expect("but does not override", ROOT.replace("const Root&", "Root&"))

    def test_constness_of_a_pure_operation(self):
        self.expect("but does not override", ROOT.replace("copy()", "copy() const"))

    def test_pure_operation_that_the_table_does_not_know(self):
        self.expect("Root: slot 5 holds __cxa_pure_virtual", ROOT.replace("pure void restore(const Root&)", "restore"))

    def test_class_without_virtual_operations(self):
        self.expect("Plain: has no vtable", "class Plain in header.h\n    ~\n")

    def test_line_that_is_neither_class_nor_operation(self):
        with self.assertRaisesRegex(ValueError, "line 1: neither a class nor an operation"):
            check_vtables.read_table("struct Root in header.h\n")

    def test_class_that_continues_a_later_one(self):
        with self.assertRaisesRegex(ValueError, "line 1: Leaf is listed twice, or after its base"):
            check_vtables.read_table("class Leaf in header.h continues Root\n")


if __name__ == "__main__":
    banner = subprocess.run([COMPILER, "--version"], capture_output=True, text=True).stdout
    if "Free Software Foundation" not in banner:
        print(f"skipped: {COMPILER} is not GCC")
        sys.exit(check_vtables.SKIPPED)
    unittest.main()
