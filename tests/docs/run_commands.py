#!/usr/bin/env python3
"""Runs the commands that a document shows, in their order, in a folder that holds a copy of samples/.

A command is a line of an indented or fenced block that begins with "quillmeter-cli ", or any line that begins with "$ "
in a block where a quillmeter-cli is called so. A backslash at the end of a line goes on in the next. It must end with
status 0, or with the N of a comment "# ... status N" behind it. The lines below a "$ " command are what it shows, both
streams together; "…" in them stands for any text, and on a line of its own for any lines. PROJECT in a command is the
sample project. Commands that need the application are left out where it was not built.

usage: run_commands.py TOOL_DIR SOURCE_DIR DOCUMENT...
       run_commands.py --self-test
"""
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

STATUS = re.compile(r"#.*\bstatus (\d+)")
PROJECT = re.compile(r"\bPROJECT\b")


class Command:
    def __init__(self, line_number, text, shows):
        self.line_number = line_number
        self.text = text
        self.output = [] if shows else None

    def status(self):
        found = STATUS.search(self.text)
        return int(found.group(1)) if found else 0


def blocks(text):
    """The document's blocks of code: lists of (line number, line)."""
    block, fence, after_blank = [], None, True
    for number, line in enumerate(text.splitlines(), 1):
        stripped = line.strip()
        if fence:
            if stripped == fence:
                yield block
                block, fence = [], None
            else:
                block.append((number, line))
        elif stripped.startswith("```"):
            yield block
            block, fence = [], "```"
        elif line.startswith("    ") and (after_blank or block):
            block.append((number, line[4:]))
        elif not stripped and block:
            block.append((number, ""))
        else:
            yield block
            block = []
        after_blank = not stripped
    yield block


def commands(text):
    for block in blocks(text):
        session = any(line.startswith("$ ") and "quillmeter-cli" in line for _, line in block)
        while block and not block[-1][1]:
            block.pop()
        goes_on, last = False, None
        for number, line in block:
            shown = session and line.startswith("$ ")
            if goes_on:
                last.text += "\n" + line
            elif shown or line.startswith("quillmeter-cli "):
                if last:
                    yield last
                last = Command(number, line[2:] if shown else line, shown)
            elif last and last.output is not None:
                last.output.append(line)
                continue
            goes_on = last is not None and line.endswith("\\")
        if last:
            yield last


def matches(expected, actual):
    pattern = ""
    while expected and not expected[-1]:
        expected = expected[:-1]
    for line in expected:
        text = line.rstrip()
        pattern += "(?:.*\n)*" if text == "…" else ".*".join(map(re.escape, text.split("…"))) + "\n"
    lines = [line.rstrip() for line in actual.splitlines()]
    return re.fullmatch(pattern, "".join(line + "\n" for line in lines)) is not None


def faults(document, tools, sources):
    environment = {**os.environ, "PATH": f"{tools}:{os.environ['PATH']}", "LC_ALL": "C.UTF-8"}
    number = 0
    with tempfile.TemporaryDirectory() as folder:
        shutil.copytree(sources / "samples", pathlib.Path(folder) / "samples")
        for command in commands(document.read_text(encoding="utf-8")):
            number += 1
            where = f"{document.name}:{command.line_number}: {command.text}"
            if "--pdf" in command.text and not (pathlib.Path(tools) / "quillmeter").exists():
                print(f"{where}\n  left out: the application was not built")
                continue
            text = PROJECT.sub("samples/Notebook", command.text)
            done = subprocess.run(["bash", "-c", text], cwd=folder, env=environment, stdout=subprocess.PIPE,
                                  stderr=subprocess.STDOUT, timeout=300)
            actual = done.stdout.decode("utf-8", "replace")
            if done.returncode != command.status():
                yield f"{where}\n  ends with status {done.returncode}:\n{actual}"
            elif command.output is not None and not matches(command.output, actual):
                yield f"{where}\n  shows:\n{actual}"
    if number == 0:
        yield f"{document.name}: there is no command in it"


def self_test():
    text = """Text quillmeter-cli no

    quillmeter-cli a \\
      --b   # ends with status 1
    other

```sh
$ echo "one two"
one …

three
$ quillmeter-cli c
quillmeter-cli: an error

quillmeter-cli e
```
    not a block after text? yes: quillmeter-cli d
"""
    found = list(commands(text))
    assert [c.text for c in found] == ["quillmeter-cli a \\\n  --b   # ends with status 1", 'echo "one two"',
                                       "quillmeter-cli c", "quillmeter-cli e"], [c.text for c in found]
    assert found[0].status() == 1 and found[0].output is None and found[0].line_number == 3
    assert found[1].output == ["one …", "", "three"] and found[2].output == ["quillmeter-cli: an error", ""]
    assert matches(["one …", "", "three", ""], "one two\n\nthree\n")
    assert not matches(["one …"], "one two\nthree\n")
    assert matches(["…", "c"], "a\nb\nc\n") and not matches(["…", "c"], "a\nb\n")
    with tempfile.TemporaryDirectory() as folder:
        sources = pathlib.Path(folder)
        (sources / "samples").mkdir()
        (sources / "quillmeter-cli").write_text("#!/bin/sh\necho $1; exit 3\n")
        (sources / "quillmeter-cli").chmod(0o755)
        document = sources / "d.md"
        for shown, expected in {"$ quillmeter-cli x # status 3\n    x": 0, "$ quillmeter-cli x # status 3\n    y": 1,
                                "$ quillmeter-cli x\n    x": 1, "no command": 1}.items():
            document.write_text("\n\n    " + shown + "\n")
            assert len(list(faults(document, folder, sources))) == expected, shown


def main():
    if sys.argv[1] == "--self-test":
        return self_test()
    tools, sources = sys.argv[1], pathlib.Path(sys.argv[2])
    found = [fault for name in sys.argv[3:] for fault in faults(pathlib.Path(name), tools, sources)]
    print("\n".join(found) or "every command does what its document says")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
