#!/usr/bin/env python3
"""Holds the table of modules in architecture.md against the build: modules.py BUILD_FOLDER [--write].

A configured build has a modules.txt: each module with the modules that it may include. The last column of the table must
say the same; --write puts it there. Two modules that use each other are an error in any case."""
import pathlib
import re
import sys

PAGE = pathlib.Path(__file__).with_name("architecture.md")
ROW = re.compile(r"^\| `([a-z0-9/]+?)/?` \|(.*)\|([^|]*)\|$", re.M)


def read_build(folder):
    lines = (pathlib.Path(folder) / "modules.txt").read_text().splitlines()
    return {name: set(used.split()) for name, used in (line.split(":") for line in lines)}


def reachable(modules, start):
    found, waiting = set(), [start]
    while waiting:
        for used in modules.get(waiting.pop(), ()):
            if used not in found:
                found.add(used)
                waiting.append(used)
    return found


def column(used):
    return " " + (", ".join(f"`{name}`" for name in sorted(used)) or "nothing") + " "


def main():
    modules = read_build(sys.argv[1])
    problems = [f"{name} uses itself by way of others" for name in modules if name in reachable(modules, name)]
    page = PAGE.read_text()
    rows = {row.group(1): row.group(3) for row in ROW.finditer(page) if row.group(1) in modules}
    if "--write" in sys.argv:
        page = ROW.sub(lambda row: f"| `{row.group(1)}` |{row.group(2)}|{column(modules[row.group(1)])}|"
                       if row.group(1) in modules else row.group(0), page)
        PAGE.write_text(page)
    else:
        problems += [f"{name}: the table says{rows[name]}, the build{column(used)}"
                     for name, used in modules.items() if name in rows and rows[name] != column(used)]
    problems += [f"{name} has no row" for name in modules if name not in rows]
    print("\n".join(problems) or f"{len(modules)} modules, as the table says")
    return 1 if problems else 0


sys.exit(main())
