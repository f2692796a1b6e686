#!/usr/bin/env python3
"""Checks that includes go one way between the rooms of src/, and that plain libraries never reach Qt.

Which room may include from which stands in docs/architecture.md and nowhere else: this reads it there.

usage: check_includes.py SOURCE_DIR        exit status 1 and a line a fault when something is wrong
       check_includes.py --self-test       checks this checker
"""
import pathlib
import re
import sys
import tempfile

CODE_BLOCK = re.compile(r'^```\w*\n(.*?)^```$', re.MULTILINE | re.DOTALL)
ARROW = re.compile(r'(\w+) +→((?: \w+)*)')
PROJECT_INCLUDE = re.compile(r'^\s*#\s*include\s+"([^"]+)"', re.MULTILINE)
QT_INCLUDE = re.compile(r'^\s*#\s*include\s+<(Q[A-Za-z/]+)>', re.MULTILINE)
# Rooms that have widgets and no plain library.
ONLY_WIDGETS = {"stats"}
PLAIN_LIBRARY = re.compile(r'quillmeter_library\(\s*\S+\s+SOURCES\s+([^)]*?)\s+(?:PUBLIC|PRIVATE|\))', re.DOTALL)


def arrows_of(text):
    """Room to the rooms that it may include from, as the one code block of arrows in a document lists them."""
    for block in CODE_BLOCK.findall(text):
        lines = [ARROW.fullmatch(line) for line in block.splitlines()]
        if lines and all(lines):
            return {line[1]: set(line[2].split()) for line in lines}
    return {}


def wrong_list(src, arrows, files):
    """Faults of the list itself: it and the folders name the same rooms, and every room is checked."""
    rooms = {file.relative_to(src).parts[0] for file in files}
    for room in sorted(rooms - arrows.keys()):
        yield f"{src / room}: the list of arrows does not have this folder"
    seen = set()
    for room, others in arrows.items():
        includes = [target for file in files if file.relative_to(src).parts[0] == room
                    for target in PROJECT_INCLUDE.findall(file.read_text(encoding="utf-8")) if "/" in target]
        if not includes:
            yield f"{src / room}: nothing to check"
        if later := others - seen:
            yield f"{room}: the list has it before {', '.join(sorted(later))}, so arrows may go round"
        seen.add(room)


def wrong_arrows(src, arrows, files):
    for file in files:
        room = file.relative_to(src).parts[0]
        for target in PROJECT_INCLUDE.findall(file.read_text(encoding="utf-8")):
            other = target.split("/")[0]
            if "/" not in target or not (src / other).is_dir():
                continue  # a generated header
            if other != room and other not in arrows.get(room, ()):
                yield f"{file}: {room} may not include from {other} ({target})"


def reaches_qt(src, file, seen):
    """The chain of files from a plain source to a Qt include; empty when there is none."""
    if file in seen or not file.is_file():
        return []
    seen.add(file)
    text = file.read_text(encoding="utf-8")
    for header in QT_INCLUDE.findall(text):
        return [str(file), f"<{header}>"]
    for target in PROJECT_INCLUDE.findall(text):
        if chain := reaches_qt(src, src / target, seen):
            return [str(file), *chain]
    return []


def plain_sources(room):
    lists = room / "CMakeLists.txt"
    text = lists.read_text(encoding="utf-8") + "\n)" if lists.is_file() else ""
    return [room / name for sources in PLAIN_LIBRARY.findall(text) for name in sources.split() if name.endswith(".cpp")]


def faults(root):
    src = root / "src"
    document = root / "docs/architecture.md"
    arrows = arrows_of(document.read_text(encoding="utf-8")) if document.is_file() else {}
    if not arrows:
        yield f"{document}: no list of arrows"
    files = sorted([*src.rglob("*.h"), *src.rglob("*.cpp")])
    yield from wrong_list(src, arrows, files)
    yield from wrong_arrows(src, arrows, files)
    for room in arrows:
        plain = plain_sources(src / room)
        if not plain and room not in ONLY_WIDGETS:
            yield f"{src / room}: no plain library to check"
        for source in plain:
            if chain := reaches_qt(src, source, set()):
                yield "a plain library reaches Qt: " + " -> ".join(chain)


def self_test():
    with tempfile.TemporaryDirectory() as folder:
        root = pathlib.Path(folder)

        def write(name, text):
            (root / name).parent.mkdir(parents=True, exist_ok=True)
            (root / name).write_text(text, encoding="utf-8")

        def expect(*parts):
            found = list(faults(root))
            assert len(found) == len(parts) and all(part in fault for part, fault in zip(parts, found)), found

        expect("no list of arrows")
        write("docs/architecture.md", "```\nsrc/\n```\n\n```\nsupport  →\nanalysis → support\n```\n")
        expect("support: nothing to check", "analysis: nothing to check", "no plain library", "no plain library")
        for room in ("support", "analysis"):
            write(f"src/{room}/CMakeLists.txt", f"quillmeter_library(quillmeter_{room}\n  SOURCES A.cpp\n  PUBLIC x)")
            write(f"src/{room}/A.cpp", f'#include "{room}/A.h"\n')
            write(f"src/{room}/A.h", "#include <string>\n")
        write("src/analysis/A.h", '#include "support/A.h"\n')
        expect()
        write("src/support/A.h", '#include "analysis/B.h"\n')
        write("src/analysis/B.h", "#include <QString>\n")
        expect("support may not include from analysis", "reaches Qt", "reaches Qt")
        write("src/support/A.h", "")
        write("src/charts/A.h", "")
        expect("charts: the list of arrows does not have this folder")
        write("docs/architecture.md", "```\ncharts → support\nsupport →\nanalysis → support\n```\n")
        expect("charts: nothing to check", "may go round", "charts: no plain library")


def main():
    if sys.argv[1] == "--self-test":
        return self_test()
    found = list(faults(pathlib.Path(sys.argv[1])))
    print("\n".join(found) or "includes go one way")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
