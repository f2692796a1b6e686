#!/usr/bin/env python3
"""Checks that includes go one way between the rooms of src/, and that plain libraries never reach Qt.

usage: check_includes.py SOURCE_DIR        exit status 1 and a line a fault when something is wrong
       check_includes.py --self-test       checks this checker
"""
import pathlib
import re
import sys
import tempfile

# Which folders a folder may include from, besides itself.
ARROWS = {
    "support": set(),
    "files": {"support"},
    "measuring": {"support", "files"},
    "analysis": {"support", "files", "measuring"},
    "compare": {"support", "files", "measuring", "analysis"},
    "parsers": {"support", "files"},
    "reminder": {"support", "controls"},
    "controls": {"support"},
    "charts": {"support", "measuring", "analysis", "controls"},
    "export": {"support", "measuring", "analysis", "controls"},
    "overview": {"support", "measuring", "analysis", "controls"},
    "tables": {"support", "measuring", "analysis", "controls"},
    "stats": {"support", "measuring", "analysis", "controls", "charts", "export", "overview", "tables", "reminder"},
    "page": {"support", "measuring", "analysis", "charts", "overview"},
    "cli": {"support", "files", "measuring", "analysis", "compare", "parsers", "overview", "tables", "charts", "export",
            "page"},
    "app": {"support", "files", "measuring", "analysis", "controls", "charts", "export", "overview", "tables",
            "stats", "reminder"},
}
PROJECT_INCLUDE = re.compile(r'^\s*#\s*include\s+"([^"]+)"', re.MULTILINE)
QT_INCLUDE = re.compile(r'^\s*#\s*include\s+<(Q[A-Za-z/]+)>', re.MULTILINE)
PLAIN_LIBRARY = re.compile(r'quillmeter_library\(\s*\S+\s+SOURCES\s+([^)]*?)\s+(?:PUBLIC|PRIVATE|\))', re.DOTALL)


def wrong_arrows(src, files):
    for file in files:
        room = file.relative_to(src).parts[0]
        for target in PROJECT_INCLUDE.findall(file.read_text(encoding="utf-8")):
            other = target.split("/")[0]
            if "/" not in target or not (src / other).is_dir():
                continue  # a generated header
            if room not in ARROWS:
                yield f"{file}: the folder {room} is not known to this check"
            elif other != room and other not in ARROWS[room]:
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


def plain_sources(src):
    for lists in sorted(src.glob("*/CMakeLists.txt")):
        for sources in PLAIN_LIBRARY.findall(lists.read_text(encoding="utf-8") + "\n)"):
            yield from (lists.parent / name for name in sources.split() if name.endswith(".cpp"))


def faults(src):
    files = sorted([*src.rglob("*.h"), *src.rglob("*.cpp")])
    plain = list(plain_sources(src))
    if not files or not plain:
        yield f"{src}: nothing to check"
    yield from wrong_arrows(src, files)
    for source in plain:
        if chain := reaches_qt(src, source, set()):
            yield "a plain library reaches Qt: " + " -> ".join(chain)


def self_test():
    with tempfile.TemporaryDirectory() as folder:
        src = pathlib.Path(folder)
        assert any("nothing to check" in fault for fault in faults(src))
        for name in ("support", "analysis"):
            (src / name).mkdir()
        (src / "support/CMakeLists.txt").write_text("quillmeter_library(quillmeter_support\n  SOURCES A.cpp\n  PUBLIC x)")
        (src / "support/A.cpp").write_text('#include "support/A.h"\n')
        (src / "support/A.h").write_text("#include <string>\n")
        assert not list(faults(src))
        (src / "support/A.h").write_text('#include "analysis/B.h"\n')
        (src / "analysis/B.h").write_text("#include <QString>\n")
        found = list(faults(src))
        assert len(found) == 2 and "may not include" in found[0] and "reaches Qt" in found[1], found


def main():
    if sys.argv[1] == "--self-test":
        return self_test()
    found = list(faults(pathlib.Path(sys.argv[1]) / "src"))
    print("\n".join(found) or "includes go one way")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
