#!/usr/bin/env python3
"""The man pages as they are installed: groff has nothing to say against them, and they tell of every option.

usage: pages_test.py INSTALLED TOOL [APPLICATION]
"""

import os
import re
import subprocess
import sys
import unittest

from help_lines import choices, commands, help_text, option_names

INSTALLED, TOOL = sys.argv[1:3]
APPLICATION = sys.argv[3] if len(sys.argv) > 3 else None


def shown(page, width=300):
    """The page as a terminal of that width shows it, a wide one if not said, and what groff has to say about it."""
    environment = {"PATH": os.environ["PATH"], "LC_ALL": "C.UTF-8", "MANWIDTH": str(width), "HOME": "/nonexistent"}
    path = os.path.join(INSTALLED, "share/man/man1", page + ".1.gz")
    result = subprocess.run(["man", "--warnings=w", "-l", path], env=environment, capture_output=True, text=True,
                            check=False)
    return result.stdout, result.stderr


def entry(names):
    """A line that begins with these names of an option."""
    return re.compile("^ +" + ", ".join(map(re.escape, names)) + r"( |$)", re.MULTILINE)


class PagesTest(unittest.TestCase):
    def test_groff_has_no_warnings(self):
        for page in ("quillmeter-cli", *(["quillmeter"] if APPLICATION else [])):
            with self.subTest(page=page):
                text, warnings = shown(page)
                self.assertEqual(warnings, "")
                for heading in ("NAME", "SYNOPSIS", "DESCRIPTION", "OPTIONS", "EXIT STATUS", "FILES", "EXAMPLES", "SEE ALSO"):
                    self.assertRegex(text, f"(?m)^{heading}$")

    def test_no_word_is_broken_and_what_is_to_be_typed_can_be_copied(self):
        for page in ("quillmeter-cli", *(["quillmeter"] if APPLICATION else [])):
            for width in (60, 80, 100):
                self.assertEqual(re.findall("\\S*\u2010\n.*", shown(page, width)[0]), [], (page, width))

    def test_every_option_of_every_command_stands_under_the_command(self):
        text, _ = shown("quillmeter-cli")
        top = help_text(TOOL)
        for names in option_names(top):
            self.assertRegex(text.split("\nCOMMANDS\n")[0], entry(names))
        self.assertGreater(len(commands(top)), 5)
        for command in commands(top):
            section = re.search(rf"^   {command}\n(.*?)(?=^ {{0,3}}\S)", text, re.MULTILINE | re.DOTALL)[1]
            words = help_text(TOOL, command)
            for names in option_names(words):
                if "--help" not in names:  # stands once, for all
                    self.assertRegex(section, entry(names), command)
            for option, values in choices(words).items():
                self.assertIn(f"{option} {'|'.join(values)}\n", section, command)

    def test_every_example_of_the_help_stands_in_the_page(self):
        text, _ = shown("quillmeter-cli")
        for command in commands(help_text(TOOL)):
            examples = re.findall(r"^  (quillmeter-cli .*)$", help_text(TOOL, command), re.MULTILINE)
            self.assertTrue(examples, command)
            for example in examples:
                self.assertIn(f" {example}\n", text)

    @unittest.skipUnless(APPLICATION, "the application was not built")
    def test_every_option_of_the_application_stands_in_its_page(self):
        text, _ = shown("quillmeter")
        names = option_names(help_text(APPLICATION))
        self.assertIn(["--rules"], names)
        for each in names:
            self.assertRegex(text, entry(each))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
