#!/usr/bin/env python3
"""Runs the commands that a document shows, in their order, in a folder that holds a copy of samples/.

document_commands.py says what a command is. It must end with status 0, or with the N of a comment "# ... status N"
behind it. What a session shows below it is compared, both streams together; "…" in there stands for any text, and on a
line of its own for any lines. The working folder and exported variables stay, as in a terminal. PROJECT in a command is
the sample project. not_run.py lists the commands that are not run. Commands that need the application are left out
where it was not built.

usage: run_commands.py TOOL_DIR SOURCE_DIR DOCUMENT...
       run_commands.py --not-run SOURCE_DIR DOCUMENT...    whether the list of commands that are not run is right
"""
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

import not_run
from document_commands import UnknownBlock, commands

PROJECT = re.compile(r"\bPROJECT\b")
NEEDS_APPLICATION = re.compile(r"--pdf|\bquillmeter ")
# What a terminal keeps between two commands.
KEEP = """[ ! -f "$TERMINAL" ] || . "$TERMINAL"
trap '{ export -p; printf "cd %q\\n" "$PWD"; } > "$TERMINAL"' EXIT
"""


def matches(expected, actual):
    pattern = ""
    while expected and not expected[-1]:
        expected = expected[:-1]
    for line in expected:
        text = line.rstrip()
        pattern += "(?:.*\n)*" if text == "…" else ".*".join(map(re.escape, text.split("…"))) + "\n"
    lines = [line.rstrip() for line in actual.splitlines()]
    return re.fullmatch(pattern, "".join(line + "\n" for line in lines)) is not None


class Terminal:
    """Runs commands one after the other in a folder of its own that holds the samples."""

    def __init__(self, tools, sources, folder):
        self.work = pathlib.Path(folder) / "work"
        shutil.copytree(sources / "samples", self.work / "samples")
        self.environment = {
            **os.environ, "PATH": f"{tools}:{os.environ['PATH']}", "LC_ALL": "C.UTF-8", "HOME": folder,
            "TERMINAL": f"{folder}/terminal",
            "GIT_CONFIG_NOSYSTEM": "1", "GIT_AUTHOR_NAME": "Reader", "GIT_AUTHOR_EMAIL": "reader@quillmeter.example",
            "GIT_COMMITTER_NAME": "Reader", "GIT_COMMITTER_EMAIL": "reader@quillmeter.example"}

    def run(self, text):
        """The status that a command ends with, and what it shows."""
        script = KEEP + PROJECT.sub("samples/Notebook", text)
        done = subprocess.run(["bash", "-c", script], cwd=self.work, env=self.environment, stdin=subprocess.DEVNULL,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, timeout=300)
        return done.returncode, done.stdout.decode("utf-8", "replace")


def faults_of_run(command, terminal):
    status, actual = terminal.run(command.text)
    if status != command.status():
        yield f"ends with status {status}:\n{actual}"
    elif command.output is not None and not matches(command.output, actual):
        yield f"shows:\n{actual}"


def faults(document, tools, sources):
    has_application = (tools / "quillmeter").exists()
    with tempfile.TemporaryDirectory() as folder:
        terminal = Terminal(tools, sources, folder)
        try:
            found = list(commands(document.read_text(encoding="utf-8")))
        except UnknownBlock as fault:
            yield f"{document.name}: {fault}"
            return
        for command in found:
            where = f"{document.name}:{command.line_number}: {command.text}"
            why = not_run.reason(command.without_comment())
            if not why and not has_application and NEEDS_APPLICATION.search(command.text):
                why = "the application was not built"
            if why:
                print(f"{where}\n  not run: {why}")
                continue
            for fault in faults_of_run(command, terminal):
                yield f"{where}\n  {fault}"
        print(f"{document.name}: {len(found)} commands")


def faults_of_list(documents, sources):
    texts = [command.without_comment() for document in documents
             for command in commands(document.read_text(encoding="utf-8"))]
    yield from (f"not_run.py: no document has a command like {pattern}" for pattern in not_run.unused(texts))
    for text in filter(not_run.reason, texts):
        yield from (f"{text}: {mistake}" for mistake in not_run.mistakes(text, sources))


def main():
    sources = pathlib.Path(sys.argv[2])
    documents = [pathlib.Path(name) for name in sys.argv[3:]]
    if sys.argv[1] == "--not-run":
        found = list(faults_of_list(documents, sources))
    else:
        tools = pathlib.Path(sys.argv[1]).resolve()
        found = [fault for document in documents for fault in faults(document, tools, sources)]
    print("\n".join(found) or "the documents are right")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
