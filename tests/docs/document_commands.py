"""Finds the commands in a document.

Each block of code, fenced or indented, is one of these:

- a fence that says that it is something else (OTHER): no commands.
- a fence called "yaml", a job of a build server: the commands are those of its scripts.
- a terminal session, which has a line that begins with "$ ": such lines are commands, and the lines below are what they
  show.
- anything else: every line is a command, and a line that begins with "#" is a comment.

A command goes on in the next line behind a backslash at its end, and up to the end of a here document.
"""
import re

import yaml

OTHER = {"text", "json", "csv", "crontab"}
SHELL = {"", "sh"}
STATUS = re.compile(r"\s#.*\bstatus (\d+)")
HERE_DOCUMENT = re.compile(r"<<'?(\w+)'?")
SCRIPTS = ("before_script", "script", "after_script", "run")


class UnknownBlock(Exception):
    pass


class Command:
    """One command: the line where it begins, its text, and the lines that it is to show, None for any."""

    def __init__(self, line_number, text, shows=False):
        self.line_number = line_number
        self.text = text
        self.output = [] if shows else None

    def status(self):
        """The exit status that it is to end with: N of a comment "# ... status N" behind it."""
        found = STATUS.search(self.first_line() if HERE_DOCUMENT.search(self.first_line()) else self.text)
        return int(found.group(1)) if found else 0

    def without_comment(self):
        return re.sub(r"\s+#.*", "", self.first_line())

    def first_line(self):
        return self.text.partition("\n")[0]

    def goes_on(self):
        lines = self.text.split("\n")
        here = HERE_DOCUMENT.search(lines[0])
        return here.group(1) not in lines[1:] if here else lines[-1].endswith("\\")


def blocks(text):
    """The document's blocks of code: pairs of what a fence calls it and a list of (line number, line)."""
    block, fence, after_blank = [], None, True
    for number, line in enumerate(text.splitlines(), 1):
        stripped = line.strip()
        if fence is not None:
            if stripped == "```":
                yield fence, block
                block, fence = [], None
            else:
                block.append((number, line))
        elif stripped.startswith("```"):
            yield "", block
            block, fence = [], stripped[3:]
        elif line.startswith("    ") and (after_blank or block):
            block.append((number, line))
        elif not stripped and block:
            block.append((number, ""))
        else:
            yield "", block
            block = []
        after_blank = not stripped
    yield fence or "", block


def commands_of_job(lines):
    """The commands of a job, which the server runs one by one (a list) or as one script (a text)."""
    first = lines[0][0]

    def scripts(value):
        if isinstance(value, list):
            for item in value:
                yield from scripts(item)
        elif isinstance(value, dict):
            for key, item in value.items():
                if key in SCRIPTS:
                    yield from item if isinstance(item, list) else item.splitlines()
                else:
                    yield from scripts(item)

    for text in scripts(yaml.safe_load("\n".join(line for _, line in lines))):
        yield Command(first, text)


def commands_of_lines(lines):
    session = any(line.startswith("$ ") for _, line in lines)
    last = None
    for number, line in lines:
        begins = line.startswith("$ ") if session else line.strip() and not line.startswith("#")
        if last and last.goes_on():
            last.text += "\n" + line
        elif begins:
            if last:
                yield last
            last = Command(number, line[2:] if session else line, session)
        elif session and not last:
            raise UnknownBlock(f"line {number}: a session begins with its output")
        elif session:
            last.output.append(line)
    if last:
        yield last


def dedented(block):
    """A block without the blanks that all its lines begin with."""
    depth = min((len(line) - len(line.lstrip()) for _, line in block if line.strip()), default=0)
    return [(number, line[depth:]) for number, line in block]


def commands(text):
    """All commands of a document in their order. Raises UnknownBlock for a block of an unknown kind."""
    for kind, block in blocks(text):
        lines = dedented(block)
        if kind == "yaml":
            yield from commands_of_job(lines)
        elif kind in SHELL:
            yield from commands_of_lines(lines)
        elif kind not in OTHER:
            raise UnknownBlock(f"line {lines[0][0] if lines else 0}: a block is called '{kind}', which is none of "
                               + ", ".join(sorted(OTHER | SHELL | {"yaml"})).strip(", "))
