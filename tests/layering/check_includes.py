#!/usr/bin/env python3
"""Holds every #include below src/ against the links that its module declares.

usage: check_includes.py SRC_FOLDER MODULE_LINKS

MODULE_LINKS has one line a module, lowest module first: "name|folder|public links|all links". Every fault is
printed as "file:line: what is wrong"; the exit status is 1 where there is one. All modules share one include
folder, so that the compiler alone would not notice any of these.
"""

import re
import sys
from dataclasses import dataclass
from pathlib import Path

INCLUDE = re.compile(r'\s*#\s*include\s*([<"])([^>"]+)[>"]')
QT_HEADER = re.compile(r"(Q[A-Z]\w*|Qt\w*/.+|q[a-z]+\.h)$")
GENERATED = re.compile(r"([Uu]i_\w+\.h|.+\.moc)$")
SYSTEM_SWITCH = re.compile(
    r"\s*#\s*(if|ifdef|ifndef|elif)\b.*\b"
    r"(_?WIN(32|64)|__MINGW\w+|_MSC_VER|__CYGWIN__|__linux__|__unix__|__APPLE__|Q_OS_\w+)\b")
QT_FREE = re.compile(r"(text|vars|err|sync|thread|callback|platform|io|file|i18n|logger|crypto(_\w+)?|web|shellhelper)$")
SOURCE_SUFFIXES = {".h", ".hpp", ".cpp", ".in"}
PREFIX = "kestrum::"


@dataclass(frozen=True)
class Module:
    name: str
    folder: str
    public: tuple
    links: tuple


def read_modules(path):
    modules = {}
    for line in path.read_text(encoding="utf-8").splitlines():
        name, folder, public, links = line.split("|")
        modules[name] = Module(name, folder, tuple(public.split()), tuple(links.split()))
    return modules


def own_links(links):
    return [link.removeprefix(PREFIX) for link in links if link.startswith(PREFIX)]


def reachable(module, modules):
    """The module, its links, and what those pass on by their public links."""
    seen = {module.name}
    todo = own_links(module.links)
    while todo:
        name = todo.pop()
        if name not in seen and name in modules:
            seen.add(name)
            todo += own_links(modules[name].public)
    return seen


def module_of(path, modules):
    """The module with the longest folder that `path`, relative to src, lies in."""
    holders = [module for module in modules.values() if path.startswith(module.folder + "/")]
    return max(holders, key=lambda module: len(module.folder), default=None)


def check_links(modules):
    order = {name: position for position, name in enumerate(modules)}
    for module in modules.values():
        for link in own_links(module.links):
            if order.get(link, len(order)) >= order[module.name]:
                yield f"{module.folder}/CMakeLists.txt:1: {module.name} links {link}, which does not stand below it"
        if QT_FREE.match(module.name) and any(link.startswith("Qt") for link in module.links):
            yield f"{module.folder}/CMakeLists.txt:1: {module.name} links Qt"


def check_include(quote, target, module, allowed, modules):
    if QT_HEADER.match(target):
        return f"{module.name} must not know Qt" if QT_FREE.match(module.name) else None
    owner = module_of(target, modules)
    if owner is None:
        if quote == '"' and not GENERATED.match(target):
            return f'"{target}" is no path below src/'
        return None
    if owner.name not in allowed:
        return f'"{target}" belongs to {owner.name}, which {module.name} does not link'
    return None


def check_file(path, name, module, allowed, modules):
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        include = INCLUDE.match(line)
        fault = check_include(include[1], include[2], module, allowed, modules) if include else None
        if SYSTEM_SWITCH.match(line) and not name.startswith("platform/"):
            fault = "only src/platform/ may ask which system this is"
        if fault:
            yield f"{name}:{number}: {fault}"


def check_tree(source_folder, modules):
    allowed = {name: reachable(module, modules) for name, module in modules.items()}
    for path in sorted(source_folder.rglob("*")):
        if path.suffix not in SOURCE_SUFFIXES:
            continue
        name = path.relative_to(source_folder).as_posix()
        module = module_of(name, modules)
        if module is None:
            yield f"{name}:1: this file belongs to no module"
        else:
            yield from check_file(path, name, module, allowed[module.name], modules)


def main(source_folder, module_links):
    modules = read_modules(Path(module_links))
    faults = [*check_links(modules), *check_tree(Path(source_folder), modules)]
    if not modules:
        faults.append(f"{module_links}:1: there is no module")
    for fault in faults:
        print(f"{source_folder}/{fault}")
    return 1 if faults else 0


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    sys.exit(main(sys.argv[1], sys.argv[2]))
