"""Makes a man page: a template says what --help does not, and the synopsis, the options and the commands are put in its
place."""

import re

from help_text import commands_of, help_of

SPECIAL = {"\\": "\\e", "-": "\\-", "'": "\\(aq", "^": "\\(ha", "~": "\\(ti", "`": "\\(ga"}


def roff(text):
    text = "".join(SPECIAL.get(character, character) for character in text)
    return "\\&" + text if text.startswith(".") else text


def bold(text):
    return "\\fB" + roff(text) + "\\fR"


def italic(text):
    return "\\fI" + roff(text) + "\\fR"


def synopsis(usage, command=""):
    """A usage line: what is typed as it stands is bold, what is put in its place italic."""
    words = [italic(word) if re.fullmatch(r"[][A-Z.]+", word) else bold(word) for word in usage.split()]
    return ".HP\n" + " ".join(words)


def heading(option):
    names = ", ".join(bold(name) for name in option.names)
    if option.choices:
        return names + " " + "|".join(bold(choice) for choice in option.choices)
    return names + (" " + italic(option.value) if option.value else "")


def described(options):
    for option in options:
        text = roff(option.text + ("" if option.text.endswith(".") else "."))
        if option.default:
            text += f" Without it {bold(option.default)}."
        if option.required and option.names[0].startswith("-"):
            text += " Must be given."
        yield f".TP\n{heading(option)}\n{text}"


def arguments(entries):
    for entry in entries:
        yield f".TP\n{italic(entry.names[0])}{'...' if entry.repeated else ''}\n{roff(entry.text)}."


def paragraph(lines):
    if lines[0] == "Examples:":
        return "\n".join([".PP\nExamples:\n.RS\n.EX", *(roff(line.strip()) for line in lines[1:]), ".EE\n.RE"])
    return ".PP\n" + "\n".join(roff(line) for line in lines)


def command_text(name, command):
    # The program's own options say what --help is.
    options = [option for option in command.options if "--help" not in option.names]
    parts = [f".SS {name}", roff(command.summary) + ".", *arguments(command.arguments), *described(options),
             *(paragraph(lines) for lines in command.footer)]
    return "\n".join(parts)


def page(template, program, version, date):
    top = help_of(program)
    commands = commands_of(program, top)
    usages = [command.usage for _, command in commands] or [top.usage]
    parts = {
        "@DATE@": date,
        "@VERSION@": version,
        "@SYNOPSIS@": "\n".join([*map(synopsis, usages), *([synopsis(program_name(top) + " --help")] if commands else [])]),
        "@OPTIONS@": "\n".join(described(top.options)),
        "@COMMANDS@": "\n".join(command_text(*command) for command in commands),
    }
    return re.sub("|".join(parts), lambda found: parts[found.group()], template)


def program_name(top):
    return top.usage.split()[0]
