"""Reads what a program says to --help. That is the one place where commands, options and their words are written down;
pages and completions are made from it, and a line that is not understood stops the build."""

import re
import subprocess
from dataclasses import dataclass, field

SECTIONS = ("Positionals:", "Options:", "Subcommands:")
VALUE = re.compile(r"(?P<name>[A-Z]+)(:\{(?P<choices>[^}]*)\})?(=(?P<default>\S+))?")


@dataclass
class Entry:
    """An option, a positional argument or a command, as a line of the help shows it."""
    names: list
    value: str = ""  # the placeholder of an option's value; empty for a flag
    choices: list = field(default_factory=list)
    default: str = ""
    required: bool = False
    repeated: bool = False
    needs: str = ""
    text: str = ""


@dataclass
class Command:
    """A program, or one of its commands."""
    summary: str
    usage: str
    arguments: list
    options: list
    commands: list
    footer: list  # of paragraphs, each a list of lines


def entry_of(names):
    """What the left column of a line says, e.g. "-o,--output FILE" or "--format TEXT:{table,json}=table"."""
    words = names.replace(", ", ",").split()
    entry = Entry(words.pop(0).split(","))
    while words:
        word = words.pop(0)
        if word == "REQUIRED":
            entry.required = True
        elif word == "...":
            entry.repeated = True
        elif word == "Needs:":
            entry.needs = words.pop(0)
        elif found := VALUE.fullmatch(word):
            entry.value = found["name"]
            entry.choices = found["choices"].split(",") if found["choices"] else []
            entry.default = found["default"] or ""
        else:
            raise ValueError(f"not understood in the help: {word!r} of {names!r}")
    return entry


def entries_of(lines):
    entries = []
    for line in lines:
        indentation = len(line) - len(line.lstrip())
        if indentation < 7:
            names, _, text = re.sub(r"  +", "\0", line.strip(), count=1).partition("\0")
            entries.append(entry_of(names))
            entries[-1].text = text
        else:
            entries[-1].text = (entries[-1].text + " " + line.strip()).strip()
    return entries


def paragraphs_of(text):
    return [block.splitlines() for block in re.split(r"\n\n+", text.strip("\n")) if block]


def parsed(text):
    """The help of a program or of one of its commands."""
    summary, usage, sections, footer = [], "", {}, []
    for paragraph in paragraphs_of(text):
        while paragraph:
            if paragraph[0].startswith("Usage: "):
                usage = paragraph.pop(0).removeprefix("Usage: ")
            elif paragraph[0] in SECTIONS:
                sections[paragraph[0]] = entries_of(paragraph[1:])
                paragraph = []
            elif not sections:
                summary.append(paragraph.pop(0))
            else:
                footer.append(paragraph)
                paragraph = []
    if not usage or "Options:" not in sections:
        raise ValueError(f"no help: {text!r}")
    return Command(" ".join(summary), usage, *(sections.get(name, []) for name in SECTIONS), footer)


def help_of(program, *command):
    # Whatever the terminal and the language of the person who builds.
    result = subprocess.run([program, *command, "--help"], check=True, capture_output=True, text=True, encoding="utf-8",
                            env={"LC_ALL": "C.UTF-8", "PATH": "/usr/bin:/bin"})
    return parsed(result.stdout)


def commands_of(program, top):
    """Pairs of a command's name and its help, in the order of the help."""
    return [(entry.names[0], help_of(program, entry.names[0])) for entry in top.commands]
