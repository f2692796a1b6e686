#!/usr/bin/env python3
"""Reads pages back: their figures are those of the JSON, and no name in them does anything.

usage: page_test.py TOOL SAMPLES_DIR
"""
import os
import pathlib
import re
import sys
import tempfile

import pages

COUNTERS = ["fileSize", "noLinesTotal", "noLinesComments", "noLinesWithoutSpaces", "noWords",
            "noCharactersWithoutSpaces", "noCharactersTotal"]
CODE = ("c", "cpp", "h", "hh", "m", "mm", "pch", "swift")


def shown(name):
    """A name as a page shows it: what is no text is U+FFFD."""
    raw = name.encode("utf-8", "surrogateescape")
    return re.sub("[\udc80-\udcff]", "\ufffd", raw.decode("utf-8", "surrogateescape"))


def check_figures(page, measured):
    files = measured["files"]
    code = [file for file in files if file["fileName"].rsplit(".", 1)[-1].lower() in CODE]
    lines = sum(file["noLinesTotal"] for file in code)
    expected = {
        "size": str(sum(file["fileSize"] for file in files)),
        "lines": str(lines),
        "kloc": f"{lines / 1000:.2f}",
        "nonEmptyLines": str(sum(file["noLinesWithoutSpaces"] for file in code)),
        "commentLines": str(sum(file["noLinesComments"] for file in code)),
        "codeFiles": str(measured["totals"]["getNumberCodeFiles"]),
        "imageFiles": str(measured["totals"]["getNumberImageFiles"]),
        "xibFiles": str(measured["totals"]["getNumberXIBFiles"]),
        "averageNonEmptyLines": str(sum(file["noLinesWithoutSpaces"] for file in code) // max(len(code), 1)),
        "averageCommentLines": str(sum(file["noLinesComments"] for file in code) // max(len(code), 1)),
    }
    assert page.figures == expected, (expected, page.figures)
    read = {key: text.replace(",", "") for key, text in page.figure_texts.items() if key != "size"}
    assert read == {key: value for key, value in expected.items() if key != "size"}, read


def check_rows(page, measured):
    folder = os.path.dirname(measured["initialPath"])
    rows = [row for row in page.rows if row]
    assert len(rows) == len(measured["files"]), len(rows)
    for row, file in zip(rows, measured["files"]):
        assert row[0][1] == shown(os.path.relpath(file["filePath"], folder)), row
        numbers = [None if value is None else int(value) for value, _ in row[2:]]
        assert numbers == [file[counter] for counter in COUNTERS], (row, file)
        texts = ["–" if number is None else str(number) for number in numbers[1:]]
        assert [text.replace(",", "") for _, text in row[3:]] == texts, row


def check(tool, project, folder, rules="classic"):
    path = folder / "page.html"
    pages.report(tool, project, path, rules)
    text = path.read_text(encoding="utf-8")
    page = pages.Page(text)
    measured = pages.measure(tool, project, rules)
    assert page.heading == shown(measured["projectTitle"]), page.heading
    check_figures(page, measured)
    check_rows(page, measured)
    assert page.elements.count("script") == 1 and page.elements.count("img") == 0
    assert page.elements.count("figure") == 5
    names = {name for name, _ in page.attributes}
    assert not {name for name in names if name.startswith("on")} and not {"src", "href", "action"} & names, names
    assert "http:" not in text and "https:" not in text
    return page


def check_current_rules(tool, weather, folder):
    """A project of today: Swift, a storyboard, an image set and a package."""
    page = check(tool, weather, folder, "current")
    assert page.notes[1] == "Measured by the current rules", page.notes
    assert page.choices == ["All kinds", "Code", "Interface", "Image", ".h", ".pdf", ".storyboard", ".svg", ".swift"], \
        page.choices
    kinds = {pathlib.PurePath(row[0][1]).suffix: row[1][1] for row in page.rows if row}
    assert kinds == {".swift": "Code", ".h": "Code", ".storyboard": "Interface", ".pdf": "Image", ".svg": "Image"}, kinds
    classic = check(tool, weather, folder)
    assert len(classic.notes) == 1 and classic.choices[4:] == [".h"], (classic.notes, classic.choices)


def main():
    tool, samples = sys.argv[1], pathlib.Path(sys.argv[2])
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        page = check(tool, samples / "Notebook", folder)
        assert page.elements.count("svg") == 5
        check_current_rules(tool, samples / "Weather", folder)
        hostile = folder / "hostile"
        hostile.mkdir()
        page = check(tool, pages.write_project(hostile, pages.HOSTILE), folder)
        assert page.elements.count("svg") == 3, "charts without files say so"
        many = folder / "many"
        many.mkdir()
        check(tool, pages.write_project(many, [f"f{number}.m" for number in range(10000)]), folder)
    print("the pages say what the JSON says")


if __name__ == "__main__":
    main()
