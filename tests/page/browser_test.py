#!/usr/bin/env python3
"""Uses a page in a real browser: sorts and filters its table, and sees that no name has run. Ends with status 77
("skipped") where there is no chromium.

usage: browser_test.py TOOL SAMPLES_DIR
"""
import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

import pages

# Runs behind the page's own script and leaves what it saw in the document.
PROBE = """<script>
const seen = {};
const names = () => Array.from(document.querySelectorAll("tbody tr"))
  .filter((row) => row.offsetParent !== null).map((row) => row.cells[0].textContent);
const header = (column) => document.querySelectorAll("thead th")[column];
seen.first = names();
seen.heights = Array.from(document.querySelectorAll("tbody tr"), (row) => row.offsetHeight);
seen.label = document.querySelector(".finding output").textContent;
header(3).querySelector("button").click();
seen.mostLines = names();
seen.sort = header(3).getAttribute("aria-sort");
header(3).querySelector("button").click();
seen.fewestLines = names();
header(0).querySelector("button").click();
seen.byName = names();
const input = document.querySelector("input");
input.value = "SEARCH";
input.dispatchEvent(new Event("input"));
seen.found = names();
seen.foundLabel = document.querySelector(".finding output").textContent;
input.value = "";
const kind = document.querySelector("select");
kind.value = "Image";
kind.dispatchEvent(new Event("input"));
seen.images = names();
seen.choices = Array.from(kind.options).map((option) => option.value);
seen.byExtension = {};
for (const choice of seen.choices.filter((value) => value.startsWith("."))) {
  kind.value = choice;
  kind.dispatchEvent(new Event("input"));
  seen.byExtension[choice] = names();
}
seen.hacked = document.body.dataset.hacked || null;
seen.paper = getComputedStyle(document.body).backgroundColor;
seen.requests = performance.getEntriesByType("resource").length;
seen.wide = document.documentElement.scrollWidth > document.documentElement.clientWidth;
document.documentElement.dataset.seen = JSON.stringify(seen);
</script>"""


def look(browser, page, *options):
    """What the probe saw on a page, of which a copy with the probe is opened."""
    probed = page.with_suffix(".probed.html")
    probed.write_text(page.read_text(encoding="utf-8").replace("</body>", PROBE + "</body>"), encoding="utf-8")
    command = [browser, "--headless=new", "--no-sandbox", "--disable-gpu", f"--user-data-dir={page.parent}/profile",
               *options, "--dump-dom", probed.as_uri()]
    done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, timeout=300, check=True)
    dom = pages.Page(done.stdout.decode("utf-8"))
    return json.loads(dict(dom.attributes)["data-seen"])


def check_sample(browser, tool, samples, folder):
    page = folder / "sample.html"
    pages.report(tool, samples / "Notebook", page)
    files = pages.measure(tool, samples / "Notebook")["files"]
    seen = look(browser, page)
    assert len(seen["first"]) == len(files) and seen["label"] == f"{len(files)} of {len(files)} files", seen
    lines = {os.path.basename(file["filePath"]): file["noLinesTotal"] for file in files}
    order = [lines[os.path.basename(name)] for name in seen["mostLines"]]
    assert order == sorted(order, reverse=True) and seen["sort"] == "descending", order
    order = [lines[os.path.basename(name)] for name in seen["fewestLines"]]
    assert order == sorted(order), order
    assert seen["byName"] == sorted(seen["byName"], key=str.lower), seen["byName"]
    assert seen["found"] and all("search" in name.lower() for name in seen["found"]), seen["found"]
    assert seen["foundLabel"] == f"{len(seen['found'])} of {len(files)} files", seen["foundLabel"]
    assert len(seen["images"]) == 5, seen["images"]
    assert seen["requests"] == 0
    dark = look(browser, page, "--force-dark-mode")
    assert seen["paper"] == "rgb(255, 255, 255)" and dark["paper"] == "rgb(29, 33, 37)", (seen["paper"], dark["paper"])
    narrow = look(browser, page, "--window-size=500,800")
    assert not narrow["wide"], "a narrow window scrolls sideways"
    assert max(narrow["heights"]) < 2 * min(seen["heights"]), ("short names are broken into lines", narrow["heights"])


def printed(browser, page):
    """The texts of the page's pages on paper."""
    paper = page.with_suffix(".pdf")
    subprocess.run([browser, "--headless=new", "--no-sandbox", "--disable-gpu", f"--user-data-dir={page.parent}/profile",
                    "--no-pdf-header-footer", f"--print-to-pdf={paper}", page.as_uri()],
                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, timeout=300, check=True)
    done = subprocess.run(["pdftotext", "-layout", paper, "-"], stdout=subprocess.PIPE, check=True)
    return done.stdout.decode("utf-8").split("\f")


def check_current_rules(browser, tool, weather, folder):
    page = folder / "weather.html"
    pages.report(tool, weather, page, "current")
    names = [file["fileName"] for file in pages.measure(tool, weather, "current")["files"]]
    found = look(browser, page)["byExtension"]
    assert set(found) == {".h", ".pdf", ".storyboard", ".svg", ".swift"}, found
    (heading,) = [text for text in printed(browser, page) if re.search("^Files$", text, re.MULTILINE)]
    assert "Non-empty" in re.split("^Files$", heading, flags=re.MULTILINE)[1], "a heading stands alone at the end of its page"
    for extension, files in found.items():
        assert sorted(map(os.path.basename, files)) == sorted(n for n in names if n.endswith(extension)), found


def check_hostile(browser, tool, folder):
    project = folder / "hostile"
    project.mkdir()
    page = folder / "hostile.html"
    pages.report(tool, pages.write_project(project, pages.HOSTILE), page)
    seen = look(browser, page)
    assert seen["hacked"] is None and seen["requests"] == 0
    assert set(pages.HOSTILE) < set(seen["first"]), seen["first"]


def main():
    browser = shutil.which("chromium")
    if not browser:
        print("skipped: there is no chromium to open a page in")
        return 77
    tool, samples = sys.argv[1], pathlib.Path(sys.argv[2])
    with tempfile.TemporaryDirectory() as name:
        check_sample(browser, tool, samples, pathlib.Path(name))
        check_current_rules(browser, tool, samples / "Weather", pathlib.Path(name))
        check_hostile(browser, tool, pathlib.Path(name))
    print("the page works in a browser")
    return 0


if __name__ == "__main__":
    sys.exit(main())
