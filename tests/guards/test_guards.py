# What the compiler and the linker were told is one thing; these read what they made of it.

import os
import re
import subprocess
import unittest
from pathlib import Path

UNIX = os.environ["KESTRUM_OS"] == "unix"
FILES = [os.environ["KESTRUM_PROGRAM"], os.environ["KESTRUM_HELPER"]]
SOURCES = Path(os.environ["KESTRUM_BUILD"], "src")
# All of a module, and the objects of the helper, which is no archive.
MODULES = [[path] for path in sorted(SOURCES.rglob("libkestrum_*.a"))]
MODULES.append(sorted(SOURCES.joinpath("shellhelper").rglob("*.o*")))


def output(tool, *arguments):
    return subprocess.run([os.environ["KESTRUM_" + tool], *arguments], stdout=subprocess.PIPE, text=True, check=True).stdout


class Guards(unittest.TestCase):
    def test_every_module_watches_its_stack(self):
        for objects in MODULES:
            self.assertIn("__stack_chk_fail", output("NM", "--undefined-only", *objects))

    def test_bounds_are_checked(self):
        symbols = output("NM", "--undefined-only", *(path for module in MODULES for path in module))
        for check in ["__glibcxx_assert_fail", *(["__snprintf_chk"] if UNIX else [])]:
            self.assertIn(check, symbols)

    @unittest.skipUnless(UNIX and os.environ["KESTRUM_PROCESSOR"] == "x86_64", "Other systems do not watch the jumps.")
    def test_every_function_is_marked_as_a_target_of_jumps(self):
        marked = re.compile(r"^[0-9a-f]+ <(\w+)>:\n.*\t(\w+)", re.MULTILINE)
        for objects in MODULES:
            functions = set(re.findall(r"^\w+ [TW] (\w+)$", output("NM", *objects), re.MULTILINE))
            starts = dict(marked.findall(output("OBJDUMP", "--disassemble", "--no-show-raw-insn", *objects)))
            self.assertTrue(functions & starts.keys())
            self.assertEqual({name for name in functions & starts.keys() if starts[name] != "endbr64"}, set())

    def test_the_files_ask_for_their_guards(self):
        for path in FILES:
            headers = output("OBJDUMP", "--private-headers", path)
            if UNIX:
                self.assertRegex(headers, r"RELRO .*\n.*flags r--")
                self.assertRegex(headers, r"STACK .*\n.*flags rw-")
                self.assertRegex(headers, r"FLAGS_1 +0x[0-9a-f]*[13579bdf]\n")  # bind now
                self.assertIn("DYNAMIC", output("OBJDUMP", "--file-headers", path))
            else:
                for guard in ("HIGH_ENTROPY_VA", "DYNAMIC_BASE", "NX_COMPAT"):
                    self.assertIn(guard, headers)
                self.assertNotIn("libssp", headers)
