#!/usr/bin/env python3
# Holds every #include below src/ against the links that its module declares.
#
# usage: check_includes.py SRC_FOLDER MODULE_LINKS
#
# MODULE_LINKS has one line a module, lowest module first: "name|folder|public links|all links". Every fault is
# printed as "file:line: what is wrong"; the exit status is 1 where there is one. All modules share one include
# folder, so that the compiler alone would not notice any of these.

import re
import sys
from pathlib import Path, PurePosixPath

INCLUDE = re.compile(r'\s*#\s*include\s*([<"])([^>"]+)[>"]')
QT_HEADER = re.compile(r"(Q[A-Z]\w*|Qt\w*/.+|q[a-z]+\.h)$")
GENERATED = re.compile(r"([Uu]i_\w+\.h|.+\.moc)$")
SYSTEM_SWITCH = re.compile(
    r"\s*#\s*(if|ifdef|ifndef|elif)\b.*\b"
    r"(_?WIN(32|64)|__MINGW\w+|_MSC_VER|__CYGWIN__|__linux__|__unix__|__APPLE__|Q_OS_\w+)\b")
QT_FREE = re.compile(r"(text|vars|err|sync|thread|callback|platform|io|file|i18n|logger|crypto(_\w+)?|web|shellhelper)$")

faults = []
names = {}  # of the modules, by folder
allowed = {}  # the modules whose headers a module may include, by its name


def read_modules(lines):
    passed_on = {}  # the modules that the headers of a module may name, by its link
    for line in lines:
        name, folder, public, links = line.split("|")
        names[folder] = name
        for link in links.split():
            if link.startswith("kestrum::") and link not in passed_on:
                faults.append(f"{folder}/CMakeLists.txt:1: {name} links {link}, which does not stand below it")
            if link.startswith("Qt") and QT_FREE.match(name):
                faults.append(f"{folder}/CMakeLists.txt:1: {name} links Qt")
        allowed[name] = {name}.union(*(passed_on.get(link, ()) for link in links.split()))
        passed_on[f"kestrum::{name}"] = {name}.union(*(passed_on.get(link, ()) for link in public.split()))


# The module of the innermost folder that has one.
def module_of(path):
    return next((names[str(folder)] for folder in PurePosixPath(path).parents if str(folder) in names), None)


def fault_of_include(quote, target, module):
    if QT_HEADER.match(target):
        return f"{module} must not know Qt" if QT_FREE.match(module) else None
    owner = module_of(target)
    if owner is None:
        return f'"{target}" is no path below src/' if quote == '"' and not GENERATED.match(target) else None
    return f'"{target}" belongs to {owner}, which {module} does not link' if owner not in allowed[module] else None


def check_file(path, name):
    module = module_of(name)
    if module is None:
        faults.append(f"{name}:1: this file belongs to no module")
        return
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        include = INCLUDE.match(line)
        if include and (fault := fault_of_include(*include.groups(), module)):
            faults.append(f"{name}:{number}: {fault}")
        if SYSTEM_SWITCH.match(line) and not name.startswith("platform/"):
            faults.append(f"{name}:{number}: only src/platform/ may ask which system this is")


def main(source_folder, module_links):
    read_modules(Path(module_links).read_text(encoding="utf-8").splitlines())
    for path in sorted(Path(source_folder).rglob("*")):
        if path.suffix in (".h", ".hpp", ".cpp", ".in"):
            check_file(path, path.relative_to(source_folder).as_posix())
    for fault in faults:
        print(f"{source_folder}/{fault}")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
