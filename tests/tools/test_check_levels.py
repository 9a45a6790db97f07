#!/usr/bin/env python3
"""tools/check-levels must pass what is allowed and fail on each kind of fault, told by file and line."""

import pathlib
import subprocess
import sys
import tempfile
import unittest

SCRIPT = pathlib.Path(__file__).resolve().parents[2] / "tools" / "check-levels"


class CheckLevelsTest(unittest.TestCase):
    def check(self, files):
        with tempfile.TemporaryDirectory() as folder:
            for name, text in files.items():
                file = pathlib.Path(folder) / name
                file.parent.mkdir(parents=True, exist_ok=True)
                file.write_text(text)
            return subprocess.run([sys.executable, SCRIPT, folder], capture_output=True, text=True, timeout=60)

    def passes(self, name, *includes):
        run = self.check({name: "".join(f"#include {each}\n" for each in includes)})
        self.assertEqual((run.returncode, run.stdout), (0, "1 files keep to their levels\n"), run.stderr)

    def fails(self, name, line, words=""):
        """On the third line of an otherwise good file, and on nothing else."""
        run = self.check({name: f"#pragma once\n#include <vector>\n{line}\n",
                          "host/foundation/Good.h": "#include <map>\n"})
        self.assertEqual(run.returncode, 1, (name, line))
        self.assertEqual(len(run.stdout.splitlines()), 1, run.stdout)
        self.assertTrue(run.stdout.startswith(f"{name}:3: "), run.stdout)
        self.assertIn(words, run.stdout)

    def test_what_is_allowed_passes(self):
        self.passes("host/foundation/A.cpp", '"host/foundation/A.h"', "<vector>", "<unistd.h>", "<dlfcn.h>")
        self.passes("host/instruments/A.h", '"host/views/A.h"', '"host/instruments/B.h"', "<cmath>")
        self.passes("dashboard/A.h", '"host/instruments/A.h"', '"dashboard/B.h"', "<optional>")
        self.passes("toolbar/builtins/A.cpp", '"toolbar/A.h"', '"dashboard/A.h"', '"host/views/A.h"')
        self.passes("qt/A.h", "<QWidget>", '"host/views/A.h"', "<libdeflate.h>")
        self.passes("web/A.cpp", "<microhttpd.h>", "<sys/socket.h>")
        self.passes("stations/sqlite/A.cpp", "<sqlite3.h>")
        self.passes("stations/weewx/A.cpp", '"stations/sqlite/A.h"', '"stations/support/A.h"', '"stations/weewx/B.h"')
        self.passes("app/window/A.cpp", "<QMenu>", "<nlohmann/json.hpp>", '"stations/weewx/A.h"', '"qt/A.h"',
                    '"web/A.h"')
        self.passes("tests/host/views/A.cpp", "<gtest/gtest.h>", '"tests/support/A.h"', '"host/views/A.h"')
        self.passes("tests/app/A.cpp", "<QApplication>", "<gmock/gmock.h>", '"app/A.h"')
        self.passes("fuzz/A.cpp", '"fuzz/A.h"', '"toolbar/A.h"', '"tests/hostile/A.h"', "<cstdint>")
        self.passes("bench/A.cpp", '"bench/A.h"', '"app/pages/A.h"', "<QPainter>", "<sys/resource.h>")

    def test_what_stands_above_or_beside_is_a_fault(self):
        for name, included in (("host/foundation/A.h", "host/views/B.h"), ("host/views/A.h", "host/station/B.h"),
                               ("host/station/A.cpp", "host/instruments/B.h"),
                               ("host/instruments/A.h", "dashboard/B.h"),
                               ("dashboard/A.h", "toolbar/B.h"), ("dashboard/A.cpp", "qt/B.h"), ("qt/A.cpp", "app/B.h"),
                               ("qt/A.cpp", "dashboard/B.h"), ("web/A.cpp", "qt/B.h"), ("app/A.cpp", "toolbar/B.h"),
                               ("app/window/A.cpp", "dashboard/B.h"), ("stations/weewx/A.h", "stations/simulator/B.h"),
                               ("stations/sqlite/A.h", "stations/support/B.h"), ("stations/history/A.h", "web/B.h"),
                               ("host/views/A.cpp", "tests/support/B.h"), ("toolbar/A.cpp", "bench/B.h"),
                               ("tests/app/A.cpp", "fuzz/B.h"), ("fuzz/A.cpp", "app/B.h")):
            self.fails(name, f'#include "{included}"', f"may not include {included}")

    def test_libraries_stay_where_they_belong(self):
        for name, header in (("host/station/A.cpp", "sqlite3.h"), ("dashboard/A.cpp", "sqlite3.h"),
                             ("toolbar/A.cpp", "nlohmann/json.hpp"), ("stations/history/A.cpp", "sqlite3.h"),
                             ("app/A.cpp", "sqlite3.h"), ("web/A.cpp", "sqlite3.h"), ("qt/A.cpp", "microhttpd.h"),
                             ("host/views/A.cpp", "libdeflate.h"), ("host/views/A.cpp", "unistd.h"),
                             ("dashboard/A.cpp", "sys/stat.h"), ("toolbar/builtins/A.cpp", "dlfcn.h"),
                             ("dashboard/A.cpp", "boost/any.hpp"), ("dashboard/A.cpp", "bits/stdc++.h"),
                             ("host/foundation/A.cpp", "math.h"), ("host/foundation/A.cpp", "gtest/gtest.h"),
                             ("fuzz/A.cpp", "gtest/gtest.h")):
            self.fails(name, f"#include <{header}>", f"may not include <{header}>")

    def test_the_toolkit_stays_in_its_folders_in_every_spelling(self):
        for header in ("QWidget", "QtWidgets/QWidget", "QtCore", "QtGlobal", "qstring.h", "qt6/QtCore/qstring.h"):
            for name in ("host/views/A.h", "dashboard/A.cpp", "toolbar/A.cpp", "web/A.cpp", "stations/weewx/A.cpp",
                         "tests/dashboard/A.cpp", "fuzz/A.cpp"):
                self.fails(name, f"#include <{header}>", f"may not include <{header}>")

    def test_qts_modules_and_small_names_are_no_includes_even_there(self):
        for header in ("QtCore", "QtWidgets/QWidget", "qstring.h"):
            for name in ("qt/A.h", "app/A.cpp"):
                self.fails(name, f"#include <{header}>")

    def test_our_files_are_named_from_the_root(self):
        for included in ("../qt/B.h", "B.h", "./B.h", "dashboard/../qt/B.h", "views/B.h", "/host/views/B.h", "QWidget",
                         "sqlite3.h", ""):
            self.fails("dashboard/A.h", f'#include "{included}"', f'"{included}" is not named from the root')
        self.fails("tests/host/A.cpp", '#include "../B.h"')
        self.fails("bench/A.cpp", '#include "Measure.h"')

    def test_spelling_hides_nothing(self):
        for line in ('  #include "qt/B.h"', '#  include "qt/B.h"', '\t#\tinclude\t"qt/B.h"', '#include"qt/B.h"',
                     "#include<QWidget>", "    #include <sqlite3.h>", '#include "qt/B.h" // why', '#import "qt/B.h"',
                     "#include_next <sqlite3.h>", "#include HEADER", "#include \\"):
            self.fails("dashboard/A.cpp", line)

    def test_every_kind_of_file_is_read(self):
        for suffix in ("h", "hpp", "inl", "c", "cc", "cpp", "cxx"):
            self.fails(f"dashboard/A.{suffix}", '#include "qt/B.h"')

    def test_a_folder_without_a_rule_is_a_fault(self):
        for name in ("stations/barometric/A.cpp", "host/A.h", "stations/A.h", "packaging/A.cpp", "A.cpp",
                     "appendix/A.h"):
            run = self.check({name: "#include <vector>\n"})
            self.assertEqual(run.returncode, 1, name)
            self.assertEqual(run.stdout, f"{name}: its folder has no rule in check-levels\n")

    def test_what_is_built_is_not_ours(self):
        self.assertEqual(self.check({"build/x/A.cpp": '#include "B.h"\n', "build-asan/A.cpp": '#include "B.h"\n',
                                     "app/A.cpp": "\n"}).returncode, 0)

    def test_every_fault_is_told_and_no_sources_at_all_are_one(self):
        run = self.check({"dashboard/A.h": '#include "qt/B.h"\n#include <map>\n#include <QMenu>\n',
                          "qt/A.h": '#include "A.h"\n'})
        self.assertEqual([line.split(": ")[0] for line in run.stdout.splitlines()],
                         ["dashboard/A.h:1", "dashboard/A.h:3", "qt/A.h:1"])
        self.assertEqual(self.check({}).returncode, 1)


if __name__ == "__main__":
    unittest.main()
