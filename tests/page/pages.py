"""Projects to make pages of, and the reading back of such a page."""
import html.parser
import json
import os
import pathlib
import subprocess

HOSTILE = [
    "</script><script>document.body.dataset.hacked = 1<_script>.m",
    "<img src=x onerror=document.body.dataset.hacked=1>.m",
    "x\" onmouseover=alert(1) x='.m",
    "& &lt &#60 &amp <b>.c",
    "]]>--><!--.h",
    "größe \u202eabc\U0001f600.m",
]
NOT_UTF8 = b"f\xff\x80"


def write_project(folder, names):
    """A project of `names`, whose lines differ, and of one file in a folder whose name is not UTF-8."""
    references = []
    for number, name in enumerate([*names, "plain.m"]):
        target = bytes(folder) + b"/" + (NOT_UTF8 + b"/plain.m" if name == "plain.m" else name.encode())
        path = pathlib.Path(target.decode("utf-8", "surrogateescape"))
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text("int a;\n" * (number % 50))
        references.append(f"\t\tA{number} /* x */ = {{isa = PBXFileReference; lastKnownFileType = text; path = {name}; "
                          'sourceTree = "<group>"; };\n')
    bundle = folder / "Odd & <b>.xcodeproj"
    bundle.mkdir()
    text = "// !$*UTF8*$!\n{\n/* Begin PBXFileReference section */\n" + "".join(references) + "/* End PBXFileReference section */\n}\n"
    (bundle / "project.pbxproj").write_text(text)
    return bundle


def measure(tool, project, rules="classic"):
    done = subprocess.run([tool, "measure", "--format", "json", "--rules", rules, project], stdout=subprocess.PIPE,
                          check=True)
    return json.loads(done.stdout)


def report(tool, project, page, rules="classic"):
    subprocess.run([tool, "report", "--html", page, "--rules", rules, project], check=True,
                   env={**os.environ, "LC_ALL": "C.UTF-8"})


class Page(html.parser.HTMLParser):
    """What a page shows: its title, the lines below it, its figures by key, exactly and as they are read, the kinds to
    choose from, and the rows of its table."""

    def __init__(self, text):
        super().__init__(convert_charrefs=True)
        self.figures = {}
        self.figure_texts = {}
        self.rows = []
        self.scripts = 0
        self.elements = []
        self.attributes = []
        self.heading = ""
        self.notes = []
        self.choices = []
        self._open = []
        self.feed(text)

    def handle_starttag(self, tag, attributes):
        values = dict(attributes)
        self.elements.append(tag)
        self.attributes += attributes
        self._open.append(tag)
        if tag == "data":
            self.figures[values["id"]] = values["value"]
            self.figure_texts[values["id"]] = ""
        if tag == "tr":
            self.rows.append([])
        if tag == "td":
            self.rows[-1].append([values.get("data-v"), ""])
        if tag == "option":
            self.choices.append("")

    def handle_endtag(self, tag):
        while self._open and self._open.pop() != tag:
            pass

    def handle_data(self, text):
        if self._open and self._open[-1] == "td":
            self.rows[-1][-1][1] += text
        if self._open and self._open[-1] == "data":
            self.figure_texts[list(self.figure_texts)[-1]] += text
        if self._open and self._open[-1] == "h1":
            self.heading += text
        if self._open and self._open[-1] == "option":
            self.choices[-1] += text
        if self._open and self._open[-1] == "p":
            self.notes.append(text)
