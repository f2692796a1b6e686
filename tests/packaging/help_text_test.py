#!/usr/bin/env python3
"""How the help of a program is read when its pages and completions are made: what is not understood stops the build.

usage: help_text_test.py FOLDER_OF_THE_GENERATOR
"""

import sys
import unittest

sys.path.insert(0, sys.argv[1])
from completions import FILE, LIST, PROJECT, WORDS, Values  # noqa: E402
from help_text import Entry, entry_of, parsed  # noqa: E402

HELP = """Counts.
Usage: zebra [OPTIONS] PROJECT

Positionals:
  PROJECT TEXT REQUIRED       A folder

Options:
  -h,--help                   Print
  --colour TEXT:{black,white}=black
                              The first
                              stripe
  --all Needs: --colour       Everything

More words.

Examples:
  zebra .
"""


class HelpTextTest(unittest.TestCase):
    def test_entries(self):
        self.assertEqual(entry_of("-o,--output FILE"), Entry(["-o", "--output"], "FILE"))
        self.assertEqual(entry_of("-h, --help"), Entry(["-h", "--help"]))
        self.assertEqual(entry_of("FILE TEXT ... REQUIRED"), Entry(["FILE"], "TEXT", required=True, repeated=True))

    def test_a_whole_help(self):
        command = parsed(HELP)
        self.assertEqual((command.summary, command.usage), ("Counts.", "zebra [OPTIONS] PROJECT"))
        self.assertEqual([entry.names for entry in command.options], [["-h", "--help"], ["--colour"], ["--all"]])
        self.assertEqual(command.options[1],
                         Entry(["--colour"], "TEXT", ["black", "white"], "black", text="The first stripe"))
        self.assertEqual(command.footer, [["More words."], ["Examples:", "  zebra ."]])

    def test_what_is_not_understood_stops_the_build(self):
        for line in ("--zebra <stripes>", "--zebra=STRIPES x"):
            with self.assertRaises(ValueError):
                entry_of(line)
        with self.assertRaises(ValueError):
            parsed("What?")

    def test_what_completes_a_value(self):
        command = parsed(HELP)
        self.assertEqual(Values(command.arguments[0], command).kind, PROJECT)
        self.assertEqual(Values(entry_of("--csv FILE"), command).kind, FILE)
        colour = Values(command.options[1], command)
        self.assertEqual((colour.kind, colour.words), (WORDS, ["black", "white"]))
        kinds = Values(Entry(["--kinds"], "KINDS", text="What to export, a list of c, headers and xib; all"), command)
        self.assertEqual((kinds.kind, kinds.words), (LIST, ["c", "headers", "xib"]))

    def test_a_value_that_nothing_completes_stops_the_build(self):
        for entry in (Entry(["--zebra"], "STRIPES"), Entry(["--top"], "N", text="How many")):
            with self.assertRaises(ValueError):
                Values(entry, parsed(HELP))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
