#!/usr/bin/env python3
"""Each kind of offence against the layers is found in a made-up tree, and a clean tree has none."""

import pathlib
import tempfile
import unittest

import check_layers

LAYERS = """
layer low:
layer mid:      low
layer mid/deep: ..mid
layer tools: ..mid/deep
layer examples: ..mid/deep tools
external fmt/*:  src/mid/*.cpp src/mid/FmtAdapter.h
external fmt/**: src/mid/Deep.cpp
upward low/Climber.cpp: mid
"""
CLEAN = {
    "src/low/Low.h": "#pragma once\n#include <vector>\n",
    "src/low/Climber.cpp": '#include "low/Low.h"\n#include "mid/Mid.h"\n',
    "src/mid/Mid.h": '#pragma once\n#include "low/Low.h"\n',
    "src/mid/Mid.cpp": '#include "mid/Mid.h"\n#include <fmt/core.h>\n',
    "src/mid/FmtAdapter.h": "#pragma once\n#include <fmt/core.h>\n",
    "src/mid/Hidden.h": "#pragma once\n#include <cstdint>\n",
    "src/mid/deep/Deep.cpp": '#include "low/Low.h"\n#include "mid/Mid.h"\n// #include "examples/no.h"\n',
    "examples/first.cpp": '#include "mid/Mid.h"\n#include "tools/Tool.h"\n#include "Shared.h"\n',
    "tools/Tool.h": "#pragma once\n",
    "examples/Shared.h": "#pragma once\n",
    "docs/page.md": '#include "nowhere.h"\n',
}
PUBLIC = ["low/Low.h", "mid/Mid.h", "mid/FmtAdapter.h"]


def offences(changes=None, layers=LAYERS, public=PUBLIC):
    files = {**CLEAN, **(changes or {})}
    with tempfile.TemporaryDirectory() as folder:
        root = pathlib.Path(folder)
        for name, text in {**files, "cmake/layers.txt": layers}.items():
            (root / name).parent.mkdir(parents=True, exist_ok=True)
            (root / name).write_text(text)
        return check_layers.Check(root, files, public).run()


class CheckLayersTest(unittest.TestCase):
    def expect(self, text, *arguments, **keywords):
        found = offences(*arguments, **keywords)
        self.assertEqual([text], found)

    def test_clean_tree_has_no_offence(self):
        self.assertEqual([], offences())

    def test_header_that_points_up(self):
        self.expect('src/low/Low.h:2: "mid/Mid.h": low may not include mid',
                    {"src/low/Low.h": '#pragma once\n#include "mid/Mid.h"\n'})

    def test_client_that_points_up(self):
        self.expect('tools/Tool.cpp:1: "examples/Shared.h": tools may not include examples',
                    {"tools/Tool.cpp": '#include "examples/Shared.h"\n'})

    def test_library_that_includes_a_client(self):
        self.expect('src/mid/Mid.cpp:1: "tools/Tool.h" is no path from src/',
                    {"src/mid/Mid.cpp": '#include "tools/Tool.h"\n'})

    def test_source_that_points_up_without_exemption(self):
        self.expect('src/low/Other.cpp:1: "mid/Mid.h": low may not include mid',
                    {"src/low/Other.cpp": '#include "mid/Mid.h"\n'})

    def test_exempted_source_that_points_up_elsewhere(self):
        self.expect('src/low/Climber.cpp:2: "mid/deep/Deep.h": low may not include mid/deep',
                    {"src/low/Climber.cpp": '#include "mid/Mid.h"\n#include "mid/deep/Deep.h"\n',
                     "src/mid/deep/Deep.h": "#pragma once\n"})

    def test_exemption_no_longer_used(self):
        self.expect("cmake/layers.txt: low/Climber.cpp does not look up into mid; take it out",
                    {"src/low/Climber.cpp": '#include "low/Low.h"\n'})

    def test_exemption_of_a_source_that_is_gone(self):
        self.expect("cmake/layers.txt: low/Gone.cpp does not look up into mid; take it out",
                    layers=LAYERS + "upward low/Gone.cpp: mid\n")

    def test_exemption_of_a_header(self):
        self.expect("cmake/layers.txt:10: only sources may look up: low/Low.h",
                    layers=LAYERS + "upward low/Low.h: mid\n")

    def test_layer_that_names_a_later_one(self):
        self.expect("cmake/layers.txt:10: no layer above this line: later",
                    layers=LAYERS + "layer sooner: later\nlayer later:\n")

    def test_line_that_is_no_statement(self):
        self.expect("cmake/layers.txt:10: not a statement: allow everything", layers=LAYERS + "allow everything\n")

    def test_missing_pragma_once(self):
        self.expect("src/mid/Hidden.h:1: has no #pragma once", {"src/mid/Hidden.h": "// #pragma once\n"})

    def test_include_beside_the_file_and_not_from_src(self):
        self.expect('src/mid/Mid.cpp:1: "Mid.h" is no path from src/', {"src/mid/Mid.cpp": '#include "Mid.h"\n'})

    def test_include_through_the_parent_folder(self):
        self.expect('src/mid/Mid.cpp:1: "../low/Low.h" is no path from src/',
                    {"src/mid/Mid.cpp": '#include "../low/Low.h"\n'})

    def test_own_header_in_angle_brackets(self):
        self.expect('src/mid/Mid.cpp:1: <mid/Mid.h> is ours: "mid/Mid.h"',
                    {"src/mid/Mid.cpp": "#include <mid/Mid.h>\n"})

    def test_third_party_where_it_is_not_allowed(self):
        self.expect("src/low/Other.cpp:1: <fmt/core.h> is not allowed here",
                    {"src/low/Other.cpp": "#include <fmt/core.h>\n"})

    def test_unknown_third_party(self):
        self.expect("src/low/Other.cpp:2: <zlib.h> is not allowed here",
                    {"src/low/Other.cpp": "\n#  include <zlib.h>\n"})

    def test_third_party_in_a_public_header_that_only_a_wildcard_names(self):
        self.expect("src/mid/Mid.h:2: <fmt/core.h> is not allowed here",
                    {"src/mid/Mid.h": "#pragma once\n#include <fmt/core.h>\n"},
                    layers=LAYERS.replace("src/mid/*.cpp", "src/mid/*"))

    def test_public_header_that_needs_a_hidden_one(self):
        self.expect('src/mid/Mid.h:2: "mid/Hidden.h" is not a public header',
                    {"src/mid/Mid.h": '#pragma once\n#include "mid/Hidden.h"\n'})

    def test_client_that_uses_a_hidden_header(self):
        self.expect('examples/first.cpp:1: "mid/Hidden.h" is not a public header',
                    {"examples/first.cpp": '#include "mid/Hidden.h"\n'})

    def test_folder_without_layer(self):
        self.expect("src/new/New.h:1: lies in a folder that cmake/layers.txt does not name",
                    {"src/new/New.h": "#pragma once\n"})

    def test_public_header_that_is_not_tracked(self):
        self.expect("src/low/Lost.h:0: is listed as a public header and not tracked", public=PUBLIC + ["low/Lost.h"])


if __name__ == "__main__":
    unittest.main()
