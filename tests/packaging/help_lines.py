"""What the tool says to --help, read for tests in a way of their own: names alone."""

import re
import subprocess


def help_text(program, *command):
    return subprocess.run([program, *command, "--help"], check=True, capture_output=True, text=True).stdout


def option_names(text):
    """The names of each option, as the help lists them."""
    lines = re.findall(r"^ {2,6}(-.*?)(?: {2,}|$)", text, re.MULTILINE)
    return [re.findall(r"(?<![\w{,-])--?[a-z][a-z-]*|(?<=,)--[a-z-]+", line.split(" Needs:")[0]) for line in lines]


def commands(text):
    return re.findall(r"^  (\w+) {2,}", text.split("Subcommands:")[1].split("\n\n")[0], re.MULTILINE)


def choices(text):
    """Words to choose from by the option that takes them."""
    return {name: words.split(",") for name, words in re.findall(r"^  (--[a-z-]+) \w+:\{(.*?)\}", text, re.MULTILINE)}
