#!/usr/bin/env python3
"""The completions as they are installed, in the real shell: what the Tab key offers behind a line that was typed.

usage: completions_test.py INSTALLED TOOL bash|zsh|fish    status 77 when there is no such shell
"""

import os
import pty
import re
import select
import shutil
import subprocess
import sys
import tempfile
import time
import unittest

from help_lines import choices, commands, help_text, option_names

INSTALLED, TOOL, SHELL = sys.argv[1:4]
INSTALLED = os.path.abspath(INSTALLED)
ESCAPES = re.compile(r"\x00+|\x1b\[[0-9;?]*[a-zA-Z]|\x1b[=>]|[\x07\r\x0f]")

START = {
    "bash": (["bash", "--norc", "--noprofile", "-i"], """
        bind 'set show-all-if-ambiguous on'; bind 'set completion-query-items -1'; bind 'set page-completions off'
        bind 'set enable-bracketed-paste off'; bind 'set bell-style none'
        source /usr/share/bash-completion/bash_completion
        source '{installed}/share/bash-completion/completions/quillmeter-cli'
        """),
    "zsh": (["zsh", "-f", "-i", "+o", "prompt_cr", "+o", "prompt_sp"], """
        fpath=('{installed}/share/zsh/vendor-completions' $fpath); LISTMAX=0; unsetopt menu_complete auto_menu beep list_ambiguous
        autoload -U compinit; compinit -u -D; bindkey -e
        tab() {{ zle expand-or-complete; zle -R; print -rn -- " COMPLETED" }}; zle -N tab; bindkey '^I' tab
        """),
}


class Terminal:
    """An interactive shell in a terminal of its own."""

    def __init__(self, folder):
        command, setup = START[SHELL]
        environment = {"PATH": os.path.dirname(os.path.abspath(TOOL)) + ":" + os.environ["PATH"], "HOME": folder, "TERM": "xterm",
                       "LC_ALL": "C.UTF-8", "PS1": "ready> ", "COLUMNS": "250", "LINES": "200"}
        self.master, slave = pty.openpty()
        self.process = subprocess.Popen(command, stdin=slave, stdout=slave, stderr=slave, cwd=folder, env=environment,
                                        start_new_session=True)
        os.close(slave)
        self.run("stty cols 250 rows 200")
        for line in setup.format(installed=INSTALLED).strip().splitlines():
            self.run(line.strip())

    def run(self, line):
        """What the terminal shows until the line and one behind it have been run, and the shell waits for keys."""
        # Typed in two pieces, so that it is only found where it was run.
        return self.answer(line + "\necho E''ND\n", r"^ *END\s+ready>\s*$")

    def tab(self, line):
        """What the terminal shows when the Tab key is typed behind the line; the line is thrown away then."""
        if SHELL == "bash":
            return self.run(line + "\t\x05\x15")
        # With keys behind it this shell would not show what it found.
        return self.answer(line + "\t", "COMPLETED") + self.run("\x05\x15")

    def answer(self, keys, mark):
        os.write(self.master, keys.encode())
        shown, end = b"", time.monotonic() + 60
        while time.monotonic() < end:
            if select.select([self.master], [], [], 1)[0]:
                shown += os.read(self.master, 65536)
            text = ESCAPES.sub(" ", shown.decode(errors="replace"))
            if re.search(mark, text, re.MULTILINE):
                return text
        raise AssertionError(f"no {mark} in {shown!r}")

    def close(self):
        self.process.kill()
        self.process.wait()
        os.close(self.master)


class CompletionsTest(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="quillmeter-completions-")
        self.addCleanup(shutil.rmtree, self.folder)
        os.makedirs(self.folder + "/Notes.xcodeproj/Inner")
        os.makedirs(self.folder + "/Sources")
        for name in ("numbers.json", "Notes.xcodeproj/project.pbxproj"):
            with open(os.path.join(self.folder, name), "w", encoding="utf-8"):
                pass
        self.terminal = None
        if SHELL != "fish":
            self.terminal = Terminal(self.folder)
            self.addCleanup(self.terminal.close)

    def offered(self, line):
        """The words that are offered behind the line, and those that the line becomes."""
        line = "quillmeter-cli " + line
        if self.terminal:
            shown = self.terminal.tab(line)
        else:
            script = "source $argv[1]; complete -C $argv[2]"
            environment = {"PATH": os.environ["PATH"], "HOME": self.folder, "LC_ALL": "C.UTF-8"}
            shown = subprocess.run(["fish", "--no-config", "-c", script,
                                    INSTALLED + "/share/fish/vendor_completions.d/quillmeter-cli.fish", line], check=True,
                                   cwd=self.folder, env=environment, capture_output=True, text=True).stdout
        return set(re.split(r"[\s/\x08]+", shown.replace(line, "", 1) if line[-1] == " " else shown))

    def assert_offers(self, line, words):
        self.assertLessEqual(set(words), self.offered(line), line)

    def test_commands(self):
        names = commands(help_text(TOOL))
        self.assertGreater(len(names), 5)
        self.assert_offers("", names)
        self.assert_offers("clea", ["cleanup"])

    def test_every_option_of_every_command(self):
        self.assert_offers("--", [name for names in option_names(help_text(TOOL)) for name in names if name[1] == "-"])
        for command in commands(help_text(TOOL)):
            names = [name for names in option_names(help_text(TOOL, command)) for name in names]
            self.assert_offers(command + " --", [name for name in names if name.startswith("--")])
            if "-o" in names:
                self.assert_offers(command + " -", ["-o"])

    def test_words_to_choose_from(self):
        for command in commands(help_text(TOOL)):
            for option, words in choices(help_text(TOOL, command)).items():
                self.assert_offers(f"{command} {option} ", words)
        self.assert_offers("measure --format=js", ["--format=json"])
        self.assert_offers("measure --format m", ["markdown"])

    def test_words_of_lists_limits_and_numbers(self):
        self.assert_offers("export --kinds ", ["c", "headers", "objc", "swift", "images", "xib"])
        self.assert_offers("export --kinds c,he", ["c,headers"])
        self.assert_offers("measure --fail-if noLinesT", ["noLinesTotal"])
        self.assert_offers("compare --top ", ["all"])

    def test_projects_are_folders_and_bundles_and_no_files(self):
        offered = self.offered("measure --quiet ")
        self.assertLessEqual({"Notes.xcodeproj", "Sources"}, offered)
        self.assertNotIn("numbers.json", offered)
        self.assert_offers("cleanup No", ["Notes.xcodeproj"])
        inside = self.offered("measure Notes.xcodeproj/")
        self.assertFalse({"Inner", "project.pbxproj"} & inside, inside)

    def test_files_where_files_are_asked_for(self):
        for line in ("compare ", "measure --baseline ", "methods ", "report --html "):
            self.assert_offers(line, ["numbers.json", "Sources"])


if __name__ == "__main__":
    if shutil.which(SHELL) is None:
        sys.exit(77)
    unittest.main(argv=sys.argv[:1])
