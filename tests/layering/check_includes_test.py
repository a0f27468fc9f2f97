#!/usr/bin/env python3
"""Tells whether check_includes.py finds each kind of fault, on a little tree of modules."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

SCRIPT = Path(__file__).with_name("check_includes.py")
LINKS = [
    "err|err||",
    "sync|sync||Threads::Threads",
    "thread|thread|kestrum::err|kestrum::err kestrum::sync",
    "platform|platform||",
    "platform_qt|platform/qt|Qt5::Core|Qt5::Core kestrum::platform",
    "ui|ui|kestrum::thread|kestrum::thread Qt5::Core",
]


class CheckIncludes(unittest.TestCase):
    def faults(self, files, links=None):
        """The faults in a tree of `files` (name to text), each without the folder of the tree."""
        with tempfile.TemporaryDirectory() as folder:
            for name, text in files.items():
                path = Path(folder, "src", name)
                path.parent.mkdir(parents=True, exist_ok=True)
                path.write_text(text, encoding="utf-8")
            link_file = Path(folder, "links")
            link_file.write_text("\n".join(links or LINKS) + "\n", encoding="utf-8")
            source = str(Path(folder, "src"))
            run = subprocess.run([sys.executable, SCRIPT, source, link_file], capture_output=True, text=True, check=False)
        lines = [line.removeprefix(source + "/") for line in run.stdout.splitlines()]
        self.assertEqual(run.returncode, 1 if lines else 0, run.stderr)
        return lines

    def assert_fault_at(self, place, files, links=None):
        faults = self.faults(files, links)
        self.assertEqual([fault.split(": ")[0] for fault in faults], [place], faults)

    def test_own_linked_and_passed_on_headers_are_right(self):
        self.assertEqual([], self.faults({
            "thread/Thread.cpp": '#include "thread/Thread.h"\n#include "sync/Locker.h"\n#include <future>\n',
            "ui/Window.cpp": '#include "err/ResultCode.h"\n#include <QWidget>\n#include "ui_Window.h"\n',
            "platform/qt/Taskbar.cpp": '#include <QtDBus/QtDBus>\n#ifdef _WIN32\n#endif\n',
        }))

    def test_a_header_of_a_module_that_is_not_linked_is_found(self):
        self.assert_fault_at("err/X.h:2", {"err/X.h": '#pragma once\n#include "sync/Locker.h"\n'})

    def test_a_private_link_is_not_passed_on(self):
        self.assert_fault_at("ui/X.h:1", {"ui/X.h": '#include "sync/Locker.h"\n'})

    def test_the_longest_folder_names_the_module(self):
        self.assert_fault_at("platform/X.cpp:1", {"platform/X.cpp": '#include "platform/qt/Taskbar.h"\n'})

    def test_a_link_upwards_is_found(self):
        self.assert_fault_at("err/CMakeLists.txt:1", {}, ["err|err||kestrum::sync", "sync|sync||"])

    def test_qt_in_a_library_module_is_found(self):
        for header in ("<QString>", "<QtCore/QString>", "<qglobal.h>", '"QString"'):
            self.assert_fault_at("sync/X.h:1", {"sync/X.h": f"#include {header}\n"})
        self.assert_fault_at("err/CMakeLists.txt:1", {}, ["err|err||Qt5::Core"])

    def test_a_system_switch_outside_of_platform_is_found(self):
        for switch in ("#ifdef _WIN32", "#if defined(__linux__)", "# ifndef Q_OS_WIN", "#elif defined(_MSC_VER)"):
            self.assert_fault_at("ui/X.cpp:1", {"ui/X.cpp": switch + "\n"})

    def test_an_include_by_a_bare_name_is_found(self):
        self.assert_fault_at("sync/X.cpp:1", {"sync/X.cpp": '#include "Locker.h"\n'})

    def test_a_file_outside_of_all_modules_is_found(self):
        self.assert_fault_at("stray/X.cpp:1", {"stray/X.cpp": "\n"})


if __name__ == "__main__":
    unittest.main()
